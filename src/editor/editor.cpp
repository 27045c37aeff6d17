#include "editor/editor.h"

#include "pad/pad_reader.h"
#include "pad/pad_writer.h"
#include "platform/alert_sheets.h"
#include "platform/notification_center.h"
#include "platform/notifications.h"
#include "store/add_delete_import_edit.h"
#include "store/error_pass.h"
#include "store/process_state.h"
#include "store/storage_status.h"
#include "store/summary_file.h"
#include "store/title_folder.h"
#include "validation/field_rules.h"

using namespace Qt::StringLiterals;

namespace quillon {

namespace {

/// Makes sure that @p bytes, which nobody could make sense of, lie beside the selected title's @p fileName.
/// Blanks alone need not be kept.
bool isKept(QStringView fileName, const QByteArray &bytes)
{
    return bytes.trimmed().isEmpty() || !mwqnCurrentSWBundle ||
           bool(keepUnreadable(*mwqnCurrentSWBundle + u'/' + fileName, bytes));
}

/// Year, month and day as entered; empty unless all three are.
QString releaseDate(const PadForm &form)
{
    const QString day = form.value(FieldId::releaseDateDay);
    const QString month = form.value(FieldId::releaseDateMonth);
    const QString year = form.value(FieldId::releaseDateYear);
    if (day.isEmpty() || month.isEmpty() || year.isEmpty())
        return {};
    return year + u'-' + month + u'-' + day;
}

} // namespace

Editor::Editor(AlertSheets &sheets, QObject *parent) : QObject(parent), m_sheets(sheets) {}

void Editor::awakeFromNib()
{
    NotificationCenter &center = NotificationCenter::defaultCenter();
    center.addObserver(notification::mwqnLPDIed, this, [this] { loadPADData(); });
    center.addObserver(notification::mwqnEdChFEr, this, [this] { checkEntriesForErrors(); });
}

void Editor::loadPADData()
{
    const QByteArray stored = AddDeleteImportEdit::returnDataObjectFor(u"data").valueOr({});
    m_unreadable.clear();
    if (!quillon::loadPADData(stored, m_form)) {
        // Nothing of a PAD file is there. The form must not go on to store another title's values as this
        // one's, nor the next check replace what may be worth mending.
        quillon::loadPADData(pad_writer::skeleton(), m_form);
        m_unreadable = stored;
    }
    field_rules::forgetTypedHints(m_form);
}

void Editor::typed(FieldId field, const QString &text)
{
    TextControl &control = m_form.text(field);
    control.setEditing(true);
    control.setText(text);
    if (padField(field).kind == FieldKind::MultiLine)
        textDidChange(field);
    else
        controlTextDidChange(field);
}

void Editor::controlTextDidChange(FieldId field)
{
    ErrorPass errors = ErrorPass::ofSelectedTitle();
    field_rules::textChanged(field_rules::of(field).tag, m_form, errors);
    check(errors);
}

void Editor::textDidChange(FieldId)
{
    checkEntriesForErrors();
}

void Editor::controlTextDidEndEditing(FieldId field)
{
    ErrorPass errors = ErrorPass::ofSelectedTitle();
    const QStringView alert = field_rules::editingEnded(field_rules::of(field).tag, m_form, errors);
    if (!alert.isEmpty())
        m_sheets.show(SheetWindow::Main, {.message = alert.toString()});
    m_form.text(field).setEditing(false);
    check(errors);
}

void Editor::controlAction(FieldId)
{
    checkEntriesForErrors();
}

int Editor::numberOfRows(FieldId list) const
{
    return int(m_form.checkList(list).entries().size());
}

QString Editor::rowTitle(FieldId list, int row) const
{
    return m_form.checkList(list).entries().value(row);
}

bool Editor::isRowTicked(FieldId list, int row) const
{
    return m_form.checkList(list).isTicked(row);
}

void Editor::toggleRow(FieldId list, int row)
{
    m_form.checkList(list).toggle(row);
    checkEntriesForErrors();
}

void Editor::checkEntriesForErrors()
{
    ErrorPass errors = ErrorPass::ofSelectedTitle();
    check(errors);
}

void Editor::check(ErrorPass &errors)
{
    field_rules::checkEntries(m_form, errors);
    errors.store();
    m_errors = errors.errors();
    createPADFileData();
    storeSummary(errors.isLogEmpty());
    Q_EMIT checked();
}

QString Editor::errorMessage(FieldId field) const
{
    const auto error = m_errors.find(padField(field).control.toString());
    return error == m_errors.end() ? QString() : error->second;
}

void Editor::createPADFileData()
{
    if (!mwqnSelSW || !isKept(title_folder::padFile, m_unreadable))
        return;
    m_unreadable.clear();
    (void)AddDeleteImportEdit::writeToFile(u"data", pad_writer::document(m_form));
}

void Editor::createGeneralFileData() const
{
    storeSummary(ErrorPass::ofSelectedTitle().isLogEmpty());
}

void Editor::storeSummary(bool isValid) const
{
    if (!mwqnSelSW)
        return;
    const auto stored = AddDeleteImportEdit::returnDataObjectFor(u"general");
    if (stored.isError(Error::Kind::Unreadable))
        return reportFailure(stored.error());
    const Summary current = summary_file::parse(stored.valueOr({}));
    if (!current.sites && !isKept(title_folder::summaryFile, stored.valueOr({}))) // Worth mending, perhaps.
        return;
    const QString flag = isValid ? u"1"_s : u"0"_s;
    Summary summary;
    summary.version = m_form.value(FieldId::programVersion);
    summary.releaseDate = releaseDate(m_form);
    summary.operatingSystems = m_form.value(FieldId::osTable);
    // A file that lacks the flag gets one inside the other, which readers take; the next check mends it.
    summary.validated = current.validated ? flag : u"<OTS_VALIDATED>"_s + flag + u"</OTS_VALIDATED>"_s;
    summary.sites = current.sites;
    summary.versions = current.versions;
    (void)AddDeleteImportEdit::writeToFile(u"general", summary_file::text(summary).toUtf8(), stored);
}

} // namespace quillon
