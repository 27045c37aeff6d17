#include "overview/title_details_view.h"

#include "editor/editor.h"
#include "overview/findings_pane.h"
#include "overview/overview_controller.h"
#include "platform/settings.h"
#include "store/process_state.h"
#include "widgets/action_button.h"
#include "widgets/command_set.h"
#include "widgets/focus_frame.h"
#include "widgets/icon_cell_delegate.h"
#include "widgets/row_table.h"

#include <QBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QLayout>
#include <QListWidget>
#include <QPushButton>
#include <QSignalBlocker>
#include <QTableView>

using namespace Qt::StringLiterals;

namespace quillon {

namespace {

const QString marksHeaderKey = u"overview/submittedToTable"_s;
const QString detailsSplitterKey = u"overview/detailsSplitter"_s;
constexpr int siteWidth = 28; ///< In digits, as the other.
constexpr int versionWidth = 12;

} // namespace

TitleDetailsView::TitleDetailsView(OverviewController &overview, const Editor &editor,
                                   const CommandSet &commands, QWidget *parent)
    : QSplitter(Qt::Horizontal, parent)
    , m_overview(overview)
    , m_editor(editor)
    , m_submittedToTableView(newIconRowTable(u"submittedToTableView"_s, tr("Submitted to"), this))
    , m_validationErrorsView(new WithFocusFrame<QListWidget>(this))
    , m_marksCaption(new QLabel(tr("&Submitted to"), this))
    , m_errorsCaption(new QLabel(this))
{
    setObjectName(u"detailsSplitter"_s);
    setChildrenCollapsible(false);
    buildMarks();
    buildErrors(commands);
    restoreLayout();
    connect(&overview, &OverviewController::validationErrorsChanged, this, &TitleDetailsView::showErrors);
    connect(&editor, &Editor::checked, this, &TitleDetailsView::explain, Qt::QueuedConnection);
    showErrors();
}

TitleDetailsView::~TitleDetailsView()
{
    settings().setValue(marksHeaderKey, m_submittedToTableView->horizontalHeader()->saveState());
    settings().setValue(detailsSplitterKey, saveState());
}

void TitleDetailsView::buildMarks()
{
    m_submittedToTableView->setModel(&m_overview.submittedToTable());
    m_submittedToTableView->setItemDelegateForColumn(SubmittedToTable::Status,
                                                     new IconCellDelegate({}, this));
    connect(&m_overview, &OverviewController::selectedRowChanged, this, [this](int row) {
        if (row >= 0)
            return;
        m_submittedToTableView->clearSelection();
        explain();
    });
    addWidget(captioned(m_marksCaption, m_submittedToTableView));
}

void TitleDetailsView::buildErrors(const CommandSet &commands)
{
    m_validationErrorsView->setObjectName(u"validationErrorsView"_s);
    m_validationErrorsView->setAccessibleName(tr("Errors in the PAD file"));
    m_validationErrorsView->setWordWrap(true);
    connect(m_validationErrorsView, &QListWidget::itemActivated, this, &TitleDetailsView::askForField);
    connect(m_validationErrorsView, &QListWidget::itemClicked, this, &TitleDetailsView::askForField);
    m_errorsCaption->setTextFormat(Qt::PlainText);
    connect(m_validationErrorsView, &QListWidget::currentRowChanged, this, &TitleDetailsView::explain);
    QWidget *errors = captioned(m_errorsCaption, m_validationErrorsView);
    auto *column = static_cast<QVBoxLayout *>(errors->layout());
    auto *head = new QHBoxLayout;
    head->addWidget(m_errorsCaption, 1);
    QWidget *fix = newActionButton(*commands.action(u"fix"_s), u"fixButton"_s, errors);
    head->addWidget(fix);
    column->insertLayout(0, head);
    column->setStretchFactor(m_validationErrorsView, 1);
    m_marksCaption->setMinimumHeight(fix->sizeHint().height()); // Both lists begin at one height.
    addWidget(errors);
}

void TitleDetailsView::restoreLayout()
{
    QHeaderView *header = m_submittedToTableView->horizontalHeader();
    if (!header->restoreState(settings().value(marksHeaderKey).toByteArray()))
        setColumnWidths(*m_submittedToTableView, {siteWidth, versionWidth});
    stretchLastColumn(*m_submittedToTableView);
    restoreState(settings().value(detailsSplitterKey).toByteArray());
}

void TitleDetailsView::askForField(const QListWidgetItem *item)
{
    Q_EMIT fieldRequested(item->data(Qt::UserRole).toString());
}

void TitleDetailsView::showErrors()
{
    const StringDictionary &errors = m_overview.validationErrors();
    const QSignalBlocker blocker(m_validationErrorsView); // All of it is explained once, below.
    m_validationErrorsView->clear();
    for (const auto &[key, message] : errors) {
        auto *item = new QListWidgetItem(message, m_validationErrorsView);
        item->setData(Qt::UserRole, key);
    }
    m_errorsCaption->setText(errors.empty() ? tr("&Errors in the PAD file")
                                            : tr("&Errors in the PAD file (%L1)").arg(errors.size()));
    explain();
}

void TitleDetailsView::explain()
{
    if (!isVisible() || (!m_findings && !mwqnSelSW))
        return; // Not while the author types in the editor.
    if (!m_findings) {
        m_findings = new FindingsPane(m_editor);
        m_validationErrorsView->parentWidget()->layout()->addWidget(m_findings);
    }
    const QListWidgetItem *item = m_validationErrorsView->currentItem();
    if (!item)
        item = m_validationErrorsView->item(0);
    m_findings->explain(item ? item->data(Qt::UserRole).toString() : QString(),
                        m_overview.validationErrors());
}

void TitleDetailsView::showEvent(QShowEvent *event)
{
    QSplitter::showEvent(event);
    explain();
}

} // namespace quillon
