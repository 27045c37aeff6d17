#include "submission/form_filling.h"

#include "platform/plain_text.h"
#include "platform/translated_text.h"
#include "store/add_delete_import_edit.h"
#include "store/storage_status.h"
#include "submission/browser.h"
#include "submission/form_memory.h"
#include "submission/read_back.h"

#include <QPointer>

#include <algorithm>
#include <array>
#include <chrono>
#include <utility>

using namespace Qt::StringLiterals;

namespace quillon {

namespace {

constexpr std::chrono::seconds patience{10};
/// Many pages change what was typed a moment later.
constexpr std::chrono::milliseconds settling{400};
constexpr qsizetype longestShown = 120;

struct Outcome
{
    QStringView state; ///< As the script calls it.
    QStringView text;
};
constexpr std::array<Outcome, 7> outcomes = {{
    {u"left", QUILLON_TR_NOOP("FormFilling", "Left out: the page has gone elsewhere.")},
    {u"gone", QUILLON_TR_NOOP("FormFilling", "Left out: the field is no longer there.")},
    {u"changed", QUILLON_TR_NOOP("FormFilling", "Left out: the field is another one now.")},
    {u"locked", QUILLON_TR_NOOP("FormFilling", "Left out: the field takes nothing now.")},
    {u"full", QUILLON_TR_NOOP("FormFilling", "Left out: the field holds something now.")},
    {u"hidden", QUILLON_TR_NOOP("FormFilling", "Left out: the field is hidden now.")},
    {u"covered", QUILLON_TR_NOOP("FormFilling", "Left out: something lies over the field.")},
}};

QString outcomeOf(const QString &state)
{
    const auto outcome = std::ranges::find(outcomes, QStringView(state), &Outcome::state);
    return outcome == outcomes.end() ? FormFilling::tr("Not known: the page did not answer.")
                                     : translated("FormFilling", outcome->text);
}

QString summaryOf(const PageForm &form, qsizetype sure, qsizetype proposed)
{
    if (form.fields.isEmpty())
        return FormFilling::tr("The page has no empty field that can be filled here.");
    QString text = FormFilling::tr("Empty fields of the page: %L1; with a proposal: %L2; sure, and ticked: "
                                   "%L3. Only what is ticked is "
                                   "typed; nothing is sent.")
                       .arg(form.fields.size())
                       .arg(proposed)
                       .arg(sure);
    if (form.isCut)
        text += u' ' + FormFilling::tr("The page has more than is looked at here.");
    return text;
}

} // namespace

FormFilling::FormFilling(Browser &browser, QString site, QObject *parent)
    : QAbstractTableModel(parent), m_browser(browser), m_site(std::move(site))
{
    m_patience.setSingleShot(true);
    m_patience.setInterval(patience);
}

/// @p take is given nothing valid when the page does not answer in time.
void FormFilling::run(const QString &task, const QVariantList &values,
                      std::function<void(const QVariant &)> take)
{
    const auto once = [self = QPointer(this), number = ++m_question,
                       take = std::move(take)](const QVariant &answer) {
        if (!self || number != self->m_question)
            return;
        ++self->m_question;
        self->m_patience.stop();
        take(answer);
    };
    m_patience.disconnect(this);
    connect(&m_patience, &QTimer::timeout, this, [once] { once({}); });
    m_patience.start();
    m_browser.runFormTask(task, values, once);
}

void FormFilling::look()
{
    const Result<QByteArray> pad = AddDeleteImportEdit::returnDataObjectFor(u"data");
    if (!pad) {
        m_summary = failureLine(pad.error());
        Q_EMIT looked();
        return;
    }
    m_values = titleValues(*pad);
    run(u"look"_s, {}, [this](const QVariant &answer) { takeForm(answer); });
}

void FormFilling::takeForm(const QVariant &answer)
{
    const auto form = pageForm(answer);
    if (!form) {
        m_summary = tr("The fields of the page cannot be read.");
        Q_EMIT looked();
        return;
    }
    const auto remembered =
        m_site.isEmpty() ? QList<form_matching::Remembered>() : form_memory::of(m_site).valueOr({});
    beginResetModel();
    m_form = form->number;
    for (const PageField &field : form->fields)
        m_rows.append({.field = field});
    qsizetype sure = 0;
    const auto proposals = form_matching::propose(form->fields, m_values, remembered);
    for (const form_matching::Proposal &each : proposals) {
        m_rows[each.field].proposal = each;
        m_rows[each.field].isTicked = each.isSure;
        sure += each.isSure ? 1 : 0;
    }
    endResetModel();
    m_summary = summaryOf(*form, sure, proposals.size());
    m_step = Step::Shown;
    Q_EMIT looked();
}

void FormFilling::choose(int row, const QString &id)
{
    const auto value = std::ranges::find(m_values, id, &TitleValue::id);
    const auto text =
        value == m_values.end() ? std::nullopt : form_matching::fittingText(m_rows[row].field, *value);
    if (m_step != Step::Shown || id == m_rows[row].proposal.value || (!id.isEmpty() && !text))
        return;
    m_rows[row].proposal = {.value = id, .text = text.value_or(QString()), .why = tr("your choice")};
    m_rows[row].isTicked = text.has_value();
    Q_EMIT dataChanged(index(row, 0), index(row, ColumnCount - 1));
}

QList<TitleValue> FormFilling::valuesFor(int row) const
{
    QList<TitleValue> values;
    std::ranges::copy_if(m_values, std::back_inserter(values), [&](const TitleValue &value) {
        return form_matching::fittingText(m_rows[row].field, value).has_value();
    });
    return values;
}

int FormFilling::tickedRows() const
{
    return int(std::ranges::count(m_rows, true, &Row::isTicked));
}

void FormFilling::fill()
{
    if (!canFill())
        return;
    m_step = Step::Typing;
    Q_EMIT dataChanged(index(0, 0), index(rowCount() - 1, ColumnCount - 1)); // Ticks stay as they are now.
    typeNext(0);
}

void FormFilling::typeNext(int row)
{
    while (row < m_rows.size() && !m_rows[row].isTicked)
        ++row;
    if (row == m_rows.size()) {
        QTimer::singleShot(settling, this, [this] { readNext(0); });
        return;
    }
    run(u"fill"_s, {m_form, m_rows[row].field.number, m_rows[row].proposal.text},
        [this, row](const QVariant &answer) {
            m_rows[row].isTyped = answer.toString() == u"typed";
            tell(row, m_rows[row].isTyped ? tr("Typed.") : outcomeOf(answer.toString()));
            typeNext(answer.isValid() ? row + 1 : int(m_rows.size())); // A page that hangs may still take it.
        });
}

void FormFilling::readNext(int row)
{
    while (row < m_rows.size() && !m_rows[row].isTyped)
        ++row;
    if (row == m_rows.size()) {
        finish();
        return;
    }
    run(u"read"_s, {m_form, m_rows[row].field.number}, [this, row](const QVariant &answer) {
        const auto reading = fieldReading(answer);
        const QString notice = reading ? readBackNotice(*reading, m_rows[row].proposal.text) : QString();
        tell(row, !reading           ? tr("Typed; the field can no longer be read.")
                  : notice.isEmpty() ? tr("Filled.")
                                     : notice);
        readNext(row + 1);
    });
}

void FormFilling::finish()
{
    m_step = Step::Done;
    remember();
    m_summary = tr("%L1 of %L2 fields were filled. Look at the page before you send it.")
                    .arg(std::ranges::count(m_rows, true, &Row::isTyped))
                    .arg(tickedRows());
    Q_EMIT filled();
}

void FormFilling::remember()
{
    QList<form_matching::Remembered> confirmed;
    for (const Row &row : std::as_const(m_rows)) {
        if (row.isTyped)
            confirmed.append({.signs = row.field.signs, .value = row.proposal.value});
    }
    if (!m_site.isEmpty() && !confirmed.isEmpty())
        (void)form_memory::remember(m_site, confirmed); // The journal tells what fails.
}

void FormFilling::tell(int row, const QString &outcome)
{
    m_rows[row].outcome = outcome;
    Q_EMIT dataChanged(index(row, Outcome), index(row, Outcome));
}

int FormFilling::rowCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : int(m_rows.size());
}

int FormFilling::columnCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : int(ColumnCount);
}

QVariant FormFilling::text(const Row &row, int column) const
{
    const auto value = std::ranges::find(m_values, row.proposal.value, &TitleValue::id);
    switch (column) {
    case Field:
        return row.field.caption();
    case Value:
        return value == m_values.end() ? QString() : value->caption;
    case Text:
        return visibleLine(row.proposal.text, longestShown);
    case Why:
        return row.proposal.value.isEmpty()
                   ? QString()
                   : (row.proposal.isSure ? tr("sure: %1").arg(row.proposal.why) : row.proposal.why);
    default:
        return row.outcome;
    }
}

QVariant FormFilling::data(const QModelIndex &index, int role) const
{
    const Row &row = m_rows[index.row()];
    if (role == Qt::CheckStateRole && index.column() == Field)
        return row.isTicked ? Qt::Checked : Qt::Unchecked;
    if (role == Qt::ToolTipRole)
        return plainToolTip(text(row, index.column()).toString());
    return role == Qt::DisplayRole ? text(row, index.column()) : QVariant();
}

bool FormFilling::setData(const QModelIndex &index, const QVariant &value, int role)
{
    Row &row = m_rows[index.row()];
    if (role != Qt::CheckStateRole || m_step != Step::Shown || row.proposal.value.isEmpty())
        return false;
    row.isTicked = value.toInt() == Qt::Checked;
    Q_EMIT dataChanged(index, index);
    return true;
}

QVariant FormFilling::headerData(int section, Qt::Orientation orientation, int role) const
{
    static constexpr std::array<QStringView, ColumnCount> names = {
        QUILLON_TR_NOOP("FormFilling", "Field of the page"), QUILLON_TR_NOOP("FormFilling", "Value"),
        QUILLON_TR_NOOP("FormFilling", "Text"), QUILLON_TR_NOOP("FormFilling", "Why"),
        QUILLON_TR_NOOP("FormFilling", "Result")};
    if (role != Qt::DisplayRole || orientation != Qt::Horizontal)
        return {};
    return translated("FormFilling", names[size_t(section)]);
}

Qt::ItemFlags FormFilling::flags(const QModelIndex &index) const
{
    const bool canTick = m_step == Step::Shown && !m_rows[index.row()].proposal.value.isEmpty();
    const Qt::ItemFlags usual = Qt::ItemIsEnabled | Qt::ItemIsSelectable | Qt::ItemNeverHasChildren;
    return index.column() == Field && canTick ? usual | Qt::ItemIsUserCheckable : usual;
}

} // namespace quillon
