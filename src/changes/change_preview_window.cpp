#include "changes/change_preview_window.h"

#include "changes/marked_text_view.h"
#include "changes/plan_form.h"
#include "widgets/announcement.h"
#include "widgets/focus_frame.h"
#include "widgets/row_table.h"
#include "widgets/scroll_area.h"

#include <QBoxLayout>
#include <QGuiApplication>
#include <QHeaderView>
#include <QLabel>
#include <QListWidget>
#include <QProgressBar>
#include <QPushButton>
#include <QScopeGuard>
#include <QSplitter>
#include <QTableView>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace quillon {

namespace {

constexpr QSize firstSize(1100, 620);
constexpr int firstTitlesWidth = 380;
constexpr int progressWidth = 240;

/// So many titles are looked at before anybody would wait.
constexpr int soonDone = 50;

} // namespace

ChangePreviewWindow::ChangePreviewWindow(const QString &title, ChangePreview *preview, PlanForm *form,
                                         EditHistory &edits, QWidget *parent)
    : QDialog(parent)
    , m_preview(preview)
    , m_form(form)
    , m_edits(edits)
    , m_changesTable(new ChangesTable(*preview, this))
{
    preview->setParent(this);
    QWidget *first = form->focusWidget(); // The form loses the focus when it is laid out in here.
    setAttribute(Qt::WA_DeleteOnClose);
    setWindowTitle(title);
    resize(firstSize);
    auto *content = new QWidget;
    auto *rows = new QVBoxLayout(content);
    rows->setContentsMargins(0, 0, 0, 0);
    rows->addWidget(form);
    rows->addWidget(newPreview(), 1);
    auto *layout = new QVBoxLayout(this);
    layout->addWidget(new ScrollArea(content), 1);
    layout->addLayout(newButtons());

    m_pause.setSingleShot(true);
    m_pause.setInterval(300ms);
    connect(&m_pause, &QTimer::timeout, this, &ChangePreviewWindow::plan);
    connect(form, &PlanForm::changed, this, [this] {
        m_keepsOutcome = false;
        m_pause.start();
        showButtons();
    });
    connect(preview, &ChangePreview::progressed, this, &ChangePreviewWindow::showProgress);
    connect(preview, &ChangePreview::rowChanged, this, [this](int row) {
        if (row == currentTitle())
            showConsequences();
        if (!m_preview->isPlanning())
            showButtons();
    });
    (first ? first : m_changes)->setFocus();
    plan();
}

QWidget *ChangePreviewWindow::newPreview()
{
    auto *splitter = new QSplitter;
    splitter->setChildrenCollapsible(false);
    splitter->addWidget(newTitles());
    splitter->addWidget(newDetails());
    splitter->setStretchFactor(1, 1);
    const QHeaderView *heads = m_titles->horizontalHeader();
    const int withHeads = heads->sectionSize(ChangePreview::Title) +
                          heads->sectionSizeHint(ChangePreview::Outcome) + 2 * m_titles->frameWidth();
    const int titlesWidth = qMax(firstTitlesWidth, withHeads);
    splitter->setSizes({titlesWidth, firstSize.width() - titlesWidth});
    return splitter;
}

QWidget *ChangePreviewWindow::newTitles()
{
    m_titles = newRowTable(u"plannedTitles"_s, tr("Titles"), this);
    m_titles->setModel(m_preview);
    setColumnWidths(*m_titles, {24});
    stretchLastColumn(*m_titles);
    connect(m_titles->selectionModel(), &QItemSelectionModel::currentRowChanged, this,
            &ChangePreviewWindow::showTitle);
    return captioned(new QLabel(tr("&Titles")), m_titles);
}

QWidget *ChangePreviewWindow::newDetails()
{
    m_changes = newRowTable(u"plannedChanges"_s, tr("What changes"), this);
    m_changes->setModel(m_changesTable);
    setColumnWidths(*m_changes, {24, 27});
    stretchLastColumn(*m_changes);
    connect(m_changes->selectionModel(), &QItemSelectionModel::currentRowChanged, this,
            &ChangePreviewWindow::showChange);
    m_before = new MarkedTextView(u"valueBefore"_s, MarkedTextView::Side::Before);
    m_after = new MarkedTextView(u"valueAfter"_s, MarkedTextView::Side::After);
    auto *texts = new QWidget;
    auto *columns = new QHBoxLayout(texts);
    columns->setContentsMargins(0, 0, 0, 0);
    for (MarkedTextView *text : {m_before, m_after})
        columns->addWidget(captioned(new QLabel(text->caption()), text));
    m_consequences = new WithFocusFrame<QListWidget>;
    m_consequences->setObjectName(u"consequences"_s);
    m_consequences->setAccessibleName(tr("Errors that go and come, and notes"));
    m_consequences->setWordWrap(true);
    auto *details = new QSplitter(Qt::Vertical);
    details->setChildrenCollapsible(false);
    details->addWidget(captioned(new QLabel(tr("C&hanges")), m_changes));
    details->addWidget(texts);
    details->addWidget(captioned(new QLabel(tr("&Errors That Go and Come, Notes")), m_consequences));
    details->setSizes({260, 130, 110});
    return details;
}

QLayout *ChangePreviewWindow::newButtons()
{
    m_outcome = new QLabel;
    m_outcome->setObjectName(u"planOutcome"_s);
    m_outcome->setTextFormat(Qt::PlainText);
    m_outcome->setWordWrap(true);
    m_outcome->setTextInteractionFlags(Qt::TextSelectableByMouse);
    m_progress = new QProgressBar;
    m_progress->setObjectName(u"planProgress"_s);
    m_progress->setAccessibleName(tr("Titles looked at"));
    m_progress->setFormat(tr("Looking at title %v of %m"));
    m_progress->setFixedWidth(progressWidth);
    m_stop = newButton(u"stopPlanning"_s, tr("Sto&p"), &ChangePreviewWindow::stop);
    m_undo = newButton(u"undoPlan"_s, tr("&Undo"), &ChangePreviewWindow::undo);
    m_apply = newButton(u"applyPlan"_s, tr("Appl&y"), &ChangePreviewWindow::apply);
    auto *close = new QPushButton(tr("C&lose"));
    close->setObjectName(u"closePlan"_s);
    close->setAutoDefault(false);
    connect(close, &QPushButton::clicked, this, &QDialog::close);
    auto *row = new QHBoxLayout;
    row->addWidget(m_outcome, 1);
    for (QWidget *each : std::initializer_list<QWidget *>{m_progress, m_stop, m_undo, m_apply, close})
        row->addWidget(each);
    return row;
}

QPushButton *ChangePreviewWindow::newButton(const QString &name, const QString &text,
                                            void (ChangePreviewWindow::*pressed)())
{
    auto *button = new QPushButton(text);
    button->setObjectName(name);
    button->setAutoDefault(false);
    connect(button, &QPushButton::clicked, this, pressed);
    return button;
}

void ChangePreviewWindow::plan()
{
    m_pause.stop();
    const auto planner = m_form->planner();
    m_preview->plan(planner.valueOr({}));
    if (!planner && !m_keepsOutcome)
        m_outcome->setText(planner.error().reason);
    showProgress(0, 1);
}

int ChangePreviewWindow::currentTitle() const
{
    return m_titles->currentIndex().row();
}

void ChangePreviewWindow::showProgress(int done, int total)
{
    const bool isOn = m_preview->isPlanning() && total > soonDone;
    m_progress->setRange(0, total);
    m_progress->setValue(done);
    m_progress->setVisible(isOn);
    m_stop->setVisible(isOn);
    if (currentTitle() < 0)
        selectFirstTicked();
    if (currentTitle() >= 0 && m_changesTable->rowCount() == 0)
        showTitle();
    showButtons();
}

void ChangePreviewWindow::selectFirstTicked()
{
    for (int row = 0; row < m_preview->rowCount(); ++row) {
        if (m_preview->isTicked(row))
            return m_titles->selectRow(row);
    }
}

void ChangePreviewWindow::showTitle()
{
    m_changesTable->show(currentTitle());
    if (m_changesTable->rowCount() > 0)
        m_changes->selectRow(0);
    showChange();
    showConsequences();
}

void ChangePreviewWindow::showConsequences()
{
    m_consequences->clear();
    if (currentTitle() >= 0)
        m_consequences->addItems(consequencesOf(m_preview->row(currentTitle()).chosen));
}

void ChangePreviewWindow::showChange()
{
    const int row = m_changes->currentIndex().row();
    for (MarkedTextView *text : {m_before, m_after})
        text->showChange(row < 0 ? QString() : m_changesTable->change(row).before,
                         row < 0 ? QString() : m_changesTable->change(row).after);
}

void ChangePreviewWindow::showButtons()
{
    const qsizetype count = m_preview->tickedCount();
    const bool isReady = !m_preview->isPlanning() && !m_pause.isActive();
    m_apply->setText(count == 0   ? tr("Appl&y")
                     : count == 1 ? tr("Appl&y to 1 Title")
                                  : tr("Appl&y to %Ln Titles", nullptr, int(count)));
    m_apply->setEnabled(isReady && count > 0 && !m_preview->isApplied());
    m_undo->setVisible(m_preview->isApplied());
    m_form->setEnabled(!m_preview->isApplied());
    if (!m_keepsOutcome && isReady && m_form->planner())
        m_outcome->setText(count > 0 ? QString() : m_nothingText);
}

void ChangePreviewWindow::stop()
{
    m_preview->stop();
    m_keepsOutcome = true;
    m_outcome->setText(tr("Not all titles were looked at."));
    announce(*this, m_outcome->text());
}

void ChangePreviewWindow::apply()
{
    const Result<QString> outcome = atWork(&ChangePreview::apply);
    if (outcome)
        return tell(*outcome);
    tell(tr("Nothing was changed: %1. What stands here now is what would change.")
             .arg(outcome.error().reason));
    plan();
}

void ChangePreviewWindow::undo()
{
    const Result<QString> outcome = atWork(&ChangePreview::undo);
    if (!outcome)
        return tell(tr("Nothing was brought back: %1").arg(outcome.error().reason));
    tell(*outcome);
    plan();
}

/// Storing many titles takes its time, and nothing else can be done meanwhile.
Result<QString> ChangePreviewWindow::atWork(Result<QString> (ChangePreview::*work)(EditHistory *))
{
    m_outcome->setText(tr("Storing…"));
    m_outcome->repaint();
    QGuiApplication::setOverrideCursor(Qt::WaitCursor);
    const auto restore = qScopeGuard([] { QGuiApplication::restoreOverrideCursor(); });
    return (m_preview->*work)(&m_edits);
}

void ChangePreviewWindow::tell(const QString &sentence)
{
    m_keepsOutcome = true;
    m_outcome->setText(sentence);
    announce(*this, sentence);
    showButtons();
    Q_EMIT applied();
}

} // namespace quillon
