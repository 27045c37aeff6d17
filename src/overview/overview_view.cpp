#include "overview/overview_view.h"

#include "overview/overview_controller.h"
#include "overview/software_table_view.h"
#include "overview/title_commands.h"
#include "overview/title_details_view.h"
#include "platform/settings.h"
#include "widgets/action_button.h"
#include "widgets/command_set.h"
#include "widgets/scroll_area.h"

#include <QAction>
#include <QBoxLayout>
#include <QDragEnterEvent>
#include <QMimeData>
#include <QPushButton>
#include <QSplitter>

using namespace Qt::StringLiterals;

namespace quillon {

namespace {

const QString splitterKey = u"overview/splitter"_s;

/// The local files among what is dragged.
QStringList localFiles(const QMimeData *data)
{
    QStringList paths;
    for (const QUrl &url : data->urls()) {
        if (url.isLocalFile())
            paths.append(url.toLocalFile());
    }
    return paths;
}

/// The buttons under the list.
QWidget *newButtonRow(const CommandSet &commands)
{
    auto *row = new QWidget;
    auto *layout = new QHBoxLayout(row);
    layout->setContentsMargins(0, 0, 0, 0);
    const auto add = [&](const QString &name, const QString &command) {
        layout->addWidget(newActionButton(*commands.action(command), name, row));
    };
    const auto addWhileEnabled = [&](const QString &name, const QString &command) {
        QAction *action = commands.action(command);
        QPushButton *button = newActionButton(*action, name, row);
        layout->addWidget(button);
        const auto follow = [button, action] { button->setVisible(action->isEnabled()); };
        QObject::connect(action, &QAction::changed, button, follow);
        follow();
    };
    add(u"newSoftwareButton"_s, u"new"_s);
    add(u"importButton"_s, u"import"_s);
    addWhileEnabled(u"removeExampleButton"_s, u"removeExample"_s);
    layout->addStretch(1); // What needs a selected title stands apart.
    add(u"renameButton"_s, u"rename"_s);
    add(u"exportButton"_s, u"export"_s);
    add(u"deleteButton"_s, u"delete"_s);
    return row;
}

} // namespace

OverviewView::OverviewView(OverviewController &overview, TitleCommands &titles, const Editor &editor,
                           const CommandSet &commands, QWidget *parent)
    : QWidget(parent), m_overview(overview), m_titles(titles), m_splitter(new QSplitter(Qt::Vertical, this))
{
    setObjectName(u"overviewView"_s);
    setAcceptDrops(true);
    auto *list = new SoftwareTableView(overview, commands);
    connect(list, &SoftwareTableView::editRequested, this, &OverviewView::editRequested);
    m_details = new TitleDetailsView(overview, editor, commands);
    connect(m_details, &TitleDetailsView::fieldRequested, this, &OverviewView::fieldRequested);

    auto *upper = new QWidget;
    auto *column = new QVBoxLayout(upper);
    column->setContentsMargins(0, 0, 0, 0);
    column->addWidget(list, 1);
    column->addWidget(newButtonRow(commands));
    m_splitter->setChildrenCollapsible(false);
    m_splitter->addWidget(upper);
    m_splitter->addWidget(m_details);
    m_splitter->setStretchFactor(0, 3);
    m_splitter->setStretchFactor(1, 2);
    m_splitter->restoreState(settings().value(splitterKey).toByteArray());
    (new QVBoxLayout(this))->addWidget(new ScrollArea(m_splitter));
}

OverviewView::~OverviewView()
{
    settings().setValue(splitterKey, m_splitter->saveState());
}

void OverviewView::adviseAnew()
{
    m_details->explain();
}

void OverviewView::dragEnterEvent(QDragEnterEvent *event)
{
    if (m_overview.fileMenu().isEnabled(FileMenu::Import) && !localFiles(event->mimeData()).isEmpty())
        event->acceptProposedAction();
}

void OverviewView::dropEvent(QDropEvent *event)
{
    event->acceptProposedAction();
    m_titles.processImportedFile(localFiles(event->mimeData()));
}

} // namespace quillon
