#include "shell/manual_window.h"

#include "platform/desktop.h"
#include "platform/plain_text.h"
#include "platform/settings.h"
#include "shell/manual_browser.h"
#include "widgets/action_button.h"
#include "widgets/bring_to_front.h"
#include "widgets/focus_frame.h"
#include "widgets/row_table.h"

#include <QAction>
#include <QBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QScreen>
#include <QSplitter>
#include <QTreeWidget>

using namespace Qt::StringLiterals;

namespace quillon {

namespace {

const QString manualGeometryKey = u"manualWindow/geometry"_s;
constexpr QSize firstSize(1040, 640);
constexpr int firstListWidth = 340;
constexpr int pageRole = Qt::UserRole;
constexpr int zoomSteps = 1;

QTreeWidgetItem *newItem(const QString &text, const QString &page)
{
    auto *item = new QTreeWidgetItem({text});
    item->setToolTip(0, plainToolTip(text));
    item->setData(0, pageRole, page);
    return item;
}

} // namespace

ManualWindow::ManualWindow(Desktop &desktop)
    : m_desktop(desktop)
    , m_search(new QLineEdit(this))
    , m_list(new WithFocusFrame<QTreeWidget>(this))
    , m_browser(new ManualBrowser(desktop, this))
{
    m_commands = new CommandSet(commands(), this);
    setObjectName(u"manualWindow"_s);
    auto *layout = new QVBoxLayout(this);
    layout->addWidget(newBar());
    layout->addWidget(newSides(), 1);
    connect(m_browser, &QTextBrowser::historyChanged, m_commands, &CommandSet::update);
    connect(m_browser, &QTextBrowser::sourceChanged, this, [this] {
        const QString title = m_browser->documentTitle();
        setWindowTitle(title.isEmpty() ? tr("Quillon Manual") : tr("%1 – Quillon Manual").arg(title));
    });
    resize(firstSize.boundedTo(screen()->availableSize()));
    restoreGeometry(settings().value(manualGeometryKey).toByteArray());
    readPages();
}

QList<Command> ManualWindow::commands()
{
    const auto go = [this](void (QTextBrowser::*step)()) { return [this, step] { (m_browser->*step)(); }; };
    return {
        {.id = u"manualBack"_s,
         .text = tr("&Back"),
         .keys = {QKeySequence::Back},
         .isEnabled = [this] { return m_browser->isBackwardAvailable(); },
         .run = go(&QTextBrowser::backward)},
        {.id = u"manualForward"_s,
         .text = tr("&Forward"),
         .keys = {QKeySequence::Forward},
         .isEnabled = [this] { return m_browser->isForwardAvailable(); },
         .run = go(&QTextBrowser::forward)},
        {.id = u"manualContents"_s,
         .text = tr("&Contents"),
         .keys = {u"Alt+Home"_s},
         .run = [this] { open(u"index.html"_s); }},
        {.id = u"manualInBrowser"_s,
         .text = tr("&Open in Your Own Browser"),
         .keys = {u"Ctrl+O"_s},
         .run = [this] { openInBrowser(); }},
        {.id = u"manualFind"_s,
         .text = tr("Search"),
         .keys = {QKeySequence::Find},
         .run =
             [this] {
                 m_search->setFocus(Qt::ShortcutFocusReason);
                 m_search->selectAll();
             }},
        {.id = u"manualZoomIn"_s,
         .text = tr("Zoom In"),
         .keys = {QKeySequence::ZoomIn, u"Ctrl+="_s},
         .run = [this] { m_browser->zoomIn(zoomSteps); }},
        {.id = u"manualZoomOut"_s,
         .text = tr("Zoom Out"),
         .keys = {QKeySequence::ZoomOut},
         .run = [this] { m_browser->zoomOut(zoomSteps); }},
        {.id = u"manualClose"_s,
         .text = tr("Close"),
         .keys = {u"Esc"_s, QKeySequence::Close},
         .run = [this] { close(); }},
    };
}

ManualWindow::~ManualWindow()
{
    settings().setValue(manualGeometryKey, saveGeometry());
}

QWidget *ManualWindow::newBar()
{
    auto *bar = new QWidget;
    auto *row = new QHBoxLayout(bar);
    row->setContentsMargins(0, 0, 0, 0);
    for (const QString &id : {u"manualBack"_s, u"manualForward"_s, u"manualContents"_s})
        row->addWidget(newActionButton(*m_commands->action(id), id + u"Button"_s, bar));
    row->addStretch(1);
    row->addWidget(
        newActionButton(*m_commands->action(u"manualInBrowser"_s), u"manualInBrowserButton"_s, bar));
    return bar;
}

QWidget *ManualWindow::newSides()
{
    m_search->setObjectName(u"manualSearch"_s);
    m_search->setAccessibleName(tr("Search the manual"));
    m_search->setPlaceholderText(tr("Words to look for"));
    m_search->setClearButtonEnabled(true);
    m_list->setObjectName(u"manualList"_s);
    m_list->setHeaderHidden(true);
    m_list->setWordWrap(true);
    m_browser->setAccessibleName(tr("Page"));
    connect(m_search, &QLineEdit::textChanged, this, &ManualWindow::showList);
    connect(m_search, &QLineEdit::returnPressed, m_list, qOverload<>(&QWidget::setFocus));
    connect(m_list, &QTreeWidget::currentItemChanged, this, &ManualWindow::showChosen);

    auto *left = new QWidget;
    auto *column = new QVBoxLayout(left);
    column->setContentsMargins(0, 0, 0, 0);
    column->addWidget(captioned(new QLabel(tr("&Search")), m_search));
    column->addWidget(m_list, 1);
    auto *sides = new QSplitter;
    sides->setChildrenCollapsible(false);
    sides->addWidget(left);
    sides->addWidget(m_browser);
    sides->setStretchFactor(1, 1);
    sides->setSizes({firstListWidth, firstSize.width() - firstListWidth});
    return sides;
}

void ManualWindow::readPages()
{
    auto pages = ManualPages::read(manual::folder());
    if (!pages) {
        m_search->setEnabled(false);
        m_browser->setPlainText(pages.error().kind == Error::Kind::Missing
                                    ? tr("The manual is not installed: install Quillon again.")
                                    : tr("The manual cannot be read. %1").arg(pages.error().reason));
        return;
    }
    m_manual = *std::move(pages);
    showList();
}

void ManualWindow::open(const QString &page)
{
    if (!m_manual.pages().isEmpty())
        m_browser->setSource(manual::address(page));
    bringToFront(*this);
    m_browser->setFocus();
}

void ManualWindow::showList()
{
    const QString words = m_search->text().simplified();
    const QSignalBlocker quiet(m_list); // Nothing has been chosen yet.
    m_list->clear();
    m_list->setRootIsDecorated(words.isEmpty());
    m_list->setWordWrap(words.isEmpty()); // A hit is two lines: where it is, and some of what stands there.
    m_list->setAlternatingRowColors(!words.isEmpty());
    if (words.isEmpty())
        showContents();
    else
        showHits(words);
    m_browser->mark(words.split(u' ', Qt::SkipEmptyParts));
}

void ManualWindow::showContents()
{
    m_list->setAccessibleName(tr("Pages of the manual"));
    QTreeWidgetItem *group = nullptr;
    for (const ManualPage &page : m_manual.pages()) {
        if (!group || group->text(0) != page.group) {
            group = new QTreeWidgetItem(m_list, {page.group});
            group->setExpanded(true);
        }
        group->addChild(newItem(page.title, page.file));
    }
}

void ManualWindow::showHits(const QString &words)
{
    const QList<ManualHit> hits = m_manual.find(words);
    m_list->setAccessibleName(hits.size() == 1 ? tr("Found in one place")
                                               : tr("Found in %L1 places").arg(hits.size()));
    for (const ManualHit &hit : hits) {
        const ManualSection &section = hit.section;
        m_list->addTopLevelItem(
            newItem(m_manual.placeOf(section) + u'\n' + hit.excerpt,
                    section.anchor.isEmpty() ? section.file : section.file + u'#' + section.anchor));
    }
    if (hits.isEmpty())
        m_list->addTopLevelItem(new QTreeWidgetItem({tr("Nothing was found.")}));
}

void ManualWindow::showChosen()
{
    const QTreeWidgetItem *item = m_list->currentItem();
    const QString page = item ? item->data(0, pageRole).toString() : QString();
    if (page.isEmpty())
        return;
    m_browser->setSource(manual::address(page));
    m_browser->mark(m_search->text().split(u' ', Qt::SkipEmptyParts));
}

void ManualWindow::openInBrowser()
{
    m_desktop.openWebAddress(m_browser->source());
}

} // namespace quillon
