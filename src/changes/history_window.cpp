#include "changes/history_window.h"

#include "changes/edit_history.h"
#include "changes/marked_text_view.h"
#include "changes/restoring.h"
#include "editor/editor.h"
#include "editor/editor_layout.h"
#include "platform/plain_text.h"
#include "platform/translated_text.h"
#include "store/process_state.h"
#include "widgets/announcement.h"
#include "widgets/row_table.h"

#include <QBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QSplitter>
#include <QTableView>

using namespace Qt::StringLiterals;

namespace quillon {

namespace {

constexpr QSize historySize(1040, 540);
constexpr int firstMomentsWidth = 460;

QString windowTitleFor(const std::optional<FieldId> &field)
{
    const QString title = plainWindowTitle(*mwqnSelSW);
    return field ? HistoryWindow::tr("Earlier Texts of %1 – %2").arg(accessibleNameOf(*field), title)
                 : HistoryWindow::tr("History – %1").arg(title);
}

} // namespace

HistoryWindow::HistoryWindow(Editor &editor, EditHistory &edits, const std::optional<FieldId> &field,
                             QWidget *parent)
    : QDialog(parent), m_editor(editor), m_edits(edits), m_title(*mwqnSelSW), m_outcome(new QLabel)
{
    edits.store(); // What is under way is to be seen, too.
    m_table = new HistoryTable(m_title, field, this);
    setObjectName(u"historyWindow"_s);
    setAttribute(Qt::WA_DeleteOnClose);
    setWindowTitle(windowTitleFor(field));
    resize(historySize);

    auto *splitter = new QSplitter;
    splitter->addWidget(newMoments(field.has_value()));
    splitter->addWidget(newTexts());
    splitter->setStretchFactor(1, 1);
    splitter->setSizes({firstMomentsWidth, historySize.width() - firstMomentsWidth});
    auto *layout = new QVBoxLayout(this);
    layout->addWidget(splitter, 1);
    m_outcome->setTextFormat(Qt::PlainText);
    m_outcome->setWordWrap(true);
    layout->addWidget(m_outcome);
    layout->addWidget(newButtons());

    connect(&edits, &EditHistory::changed, m_table, &HistoryTable::refresh);
    connect(&editor, &Editor::checked, this, &HistoryWindow::showMoment);
    connect(&editor, &Editor::formLoaded, this, &HistoryWindow::closeForAnother);
    if (m_table->rowCount() > 0)
        m_moments->selectRow(0);
    else
        m_outcome->setText(tr("Nothing has been changed here yet."));
    showMoment();
}

QWidget *HistoryWindow::newMoments(bool areOfOneField)
{
    m_moments = newRowTable(u"moments"_s, tr("Moments"), this);
    m_moments->setModel(m_table);
    m_moments->setColumnHidden(HistoryTable::Field, areOfOneField);
    m_moments->resizeColumnsToContents();
    stretchLastColumn(*m_moments);
    connect(m_moments->selectionModel(), &QItemSelectionModel::currentRowChanged, this,
            &HistoryWindow::showMoment);
    return m_moments;
}

QWidget *HistoryWindow::newTexts()
{
    m_before = new MarkedTextView(u"textBefore"_s, MarkedTextView::Side::Before);
    m_after = new MarkedTextView(u"textAfter"_s, MarkedTextView::Side::After);
    auto *texts = new QWidget;
    auto *columns = new QHBoxLayout(texts);
    columns->setContentsMargins(0, 0, 0, 0);
    columns->addWidget(newText(m_before, m_restoreBefore, &history::Row::before));
    columns->addWidget(newText(m_after, m_restoreAfter, &history::Row::after));
    return texts;
}

QWidget *HistoryWindow::newText(MarkedTextView *text, QPushButton *&button, QString history::Row::*side)
{
    button = new QPushButton(tr("Restore This Field"));
    button->setObjectName(text->objectName() + u"Restore"_s);
    button->setAutoDefault(false);
    button->setAccessibleName(tr("Restore this field: %1").arg(text->accessibleName()));
    connect(button, &QPushButton::clicked, this, [this, side] { restoreField(side); });
    QWidget *column = captioned(new QLabel(text->caption()), text);
    column->layout()->addWidget(button);
    return column;
}

QWidget *HistoryWindow::newButtons()
{
    auto *buttons = new QWidget;
    auto *row = new QHBoxLayout(buttons);
    row->setContentsMargins(0, 0, 0, 0);
    m_restoreTitle = new QPushButton(tr("&Restore the Title As It Was Here"));
    m_restoreTitle->setObjectName(u"restoreTitle"_s);
    m_restoreTitle->setAutoDefault(false);
    m_restoreTitle->setToolTip(tr("Brings all fields back to what they were after the selected moment"));
    connect(m_restoreTitle, &QPushButton::clicked, this, &HistoryWindow::restoreTitle);
    auto *close = new QPushButton(tr("&Close"));
    close->setObjectName(u"closeHistory"_s);
    close->setAutoDefault(false);
    connect(close, &QPushButton::clicked, this, &HistoryWindow::close);
    row->addWidget(m_restoreTitle);
    row->addStretch(1);
    row->addWidget(close);
    return buttons;
}

void HistoryWindow::closeForAnother()
{
    if (mwqnSelSW != m_title)
        close();
}

const history::Row *HistoryWindow::moment() const
{
    const QModelIndex index = m_moments->currentIndex();
    return index.isValid() ? &m_table->entry(index.row()) : nullptr;
}

void HistoryWindow::showMoment()
{
    const history::Row *row = moment();
    for (MarkedTextView *text : {m_before, m_after})
        text->showChange(row ? row->before : QString(), row ? row->after : QString());
    const auto field = row ? fieldNamed(row->field) : std::nullopt;
    const bool canRestore = field && padField(*field).kind != FieldKind::Computed && m_editor.loaded();
    m_restoreBefore->setEnabled(canRestore && m_editor.form().value(*field) != row->before);
    m_restoreAfter->setEnabled(canRestore && m_editor.form().value(*field) != row->after);
    m_restoreTitle->setEnabled(row && m_editor.loaded());
}

void HistoryWindow::restoreField(QString history::Row::*side)
{
    m_edits.store(); // First: it may add moments to the list.
    const history::Row *row = moment();
    const auto field = row ? fieldNamed(row->field) : std::nullopt;
    if (!field)
        return;
    apply(ChangeSet{history::origin::restore,
                    fixedEnglish(u"Back to an earlier text"),
                    {{*field, m_editor.form().value(*field), row->*side}}});
}

void HistoryWindow::restoreTitle()
{
    m_edits.store();
    if (const history::Row *row = moment())
        apply(restoring::plan(m_title, m_editor.form(), row->number, std::nullopt));
}

void HistoryWindow::tell(const QString &sentence)
{
    m_outcome->setText(sentence);
    announce(*this, sentence);
}

void HistoryWindow::apply(const Result<ChangeSet> &set)
{
    const auto fields = set && mwqnSelSW == m_title ? m_edits.apply(*set)
                        : set                       ? Error{.reason = tr("another title is open")}
                                                    : Result<QList<FieldId>>(set.error());
    if (!fields)
        return tell(tr("Nothing was changed: %1").arg(fields.error().reason));
    tell(fields->isEmpty() ? tr("The title is as it was then.")
         : fields->size() == 1
             ? tr("1 field was restored. Undo takes that back.")
             : tr("%Ln fields were restored. Undo takes that back.", nullptr, int(fields->size())));
    Q_EMIT restored(*fields);
}

} // namespace quillon
