#include "editor/editor.h"

#include "editor/summary_of_form.h"
#include "pad/pad_reader.h"
#include "pad/pad_writer.h"
#include "platform/alert_sheets.h"
#include "platform/notification_center.h"
#include "platform/notifications.h"
#include "store/add_delete_import_edit.h"
#include "store/error_log.h"
#include "store/process_state.h"
#include "store/storage_status.h"
#include "store/summary_file.h"
#include "store/title_folder.h"
#include "validation/error_pass.h"
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
    Q_EMIT formAboutToLoad();
    const auto stored = AddDeleteImportEdit::returnDataObjectFor(u"data");
    m_loaded = {};
    m_keepsOldPad = false;
    if (!stored || !quillon::loadPADData(*stored, m_form)) {
        // Nothing of a PAD file is there. The form must not go on to store another title's values as this
        // one's, nor the next check replace what may be worth mending.
        quillon::loadPADData(pad_writer::skeleton(), m_form);
        m_keepsOldPad = bool(stored);
    }
    if (stored.isError(Error::Kind::Unreadable)) {
        const Error &error = stored.error();
        m_loaded = Error{error.kind, error.path,
                         tr("%1; until it is read, nothing of this title is stored").arg(error.reason)};
        reportFailure(m_loaded.error());
    }
    field_rules::forgetTypedHints(m_form);
    Q_EMIT formLoaded();
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
    Q_EMIT edited(field);
}

void Editor::controlTextDidChange(FieldId field)
{
    const ErrorLog log;
    ErrorPass errors(log.errors());
    field_rules::textChanged(field_rules::of(field).tag, m_form, errors);
    check(log, errors);
}

void Editor::textDidChange(FieldId)
{
    checkAll();
}

void Editor::controlTextDidEndEditing(FieldId field)
{
    const ErrorLog log;
    ErrorPass errors(log.errors());
    const QStringView alert = field_rules::editingEnded(field_rules::of(field).tag, m_form, errors);
    if (!alert.isEmpty())
        m_sheets.show(SheetWindow::Main, {.message = alert.toString()});
    m_form.text(field).setEditing(false);
    check(log, errors);
    leave(field);
}

void Editor::controlAction(FieldId field)
{
    checkAll();
    Q_EMIT edited(field);
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
    controlAction(list);
}

void Editor::setValues(const QList<std::pair<FieldId, QString>> &values)
{
    for (const auto &[field, value] : values)
        m_form.setValue(field, value);
    field_rules::forgetTypedHints(m_form);
    checkAll();
}

void Editor::checkEntriesForErrors()
{
    checkAll();
    Q_EMIT rechecked();
}

void Editor::checkAll()
{
    const ErrorLog log;
    ErrorPass errors(log.errors());
    check(log, errors);
}

void Editor::check(const ErrorLog &log, ErrorPass &errors)
{
    field_rules::checkEntries(m_form, errors);
    m_errors = errors.errors();
    if (mayStore()) {
        log.store(m_errors);
        createPADFileData();
        storeSummary(log.isValidWith(m_errors));
    }
    Q_EMIT checked();
}

/// Whether the form holds the selected title's values, and not what stands for those that could not be read.
bool Editor::mayStore() const
{
    return mwqnSelSW && m_loaded;
}

QString Editor::errorMessage(FieldId field) const
{
    const auto error = m_errors.find(padField(field).control.toString());
    return error == m_errors.end() ? QString() : error->second;
}

void Editor::createPADFileData()
{
    if (!mayStore())
        return;
    const auto old = AddDeleteImportEdit::returnDataObjectFor(u"data");
    if (m_keepsOldPad && old && !isKept(title_folder::padFile, *old))
        return;
    const Result<> stored = AddDeleteImportEdit::writeToFile(u"data", pad_writer::document(m_form), old);
    m_keepsOldPad = m_keepsOldPad && !stored.isDone();
}

void Editor::createGeneralFileData() const
{
    const ErrorLog log;
    storeSummary(log.isValidWith(log.stored() ? *log.stored() : m_errors));
}

void Editor::storeSummary(bool isValid) const
{
    if (!mayStore())
        return;
    const auto stored = AddDeleteImportEdit::returnDataObjectFor(u"general");
    if (stored.isError(Error::Kind::Unreadable))
        return reportFailure(stored.error());
    const QByteArray bytes = stored.valueOr({});
    const Summary current = summary_file::parse(bytes);
    if (!current.sites && !isKept(title_folder::summaryFile, bytes)) // The marks may be worth mending.
        return;
    const QString flag = isValid ? u"1"_s : u"0"_s;
    Summary summary = summaryOf(m_form);
    // A file that lacks the flag gets one inside the other, which readers take; the next check mends it.
    summary.validated = current.validated ? flag : u"<OTS_VALIDATED>"_s + flag + u"</OTS_VALIDATED>"_s;
    summary.sites = current.sites;
    summary.versions = current.versions;
    (void)AddDeleteImportEdit::writeToFile(u"general", summary_file::text(summary).toUtf8(), stored);
}

} // namespace quillon
