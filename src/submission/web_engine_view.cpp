#include "submission/web_engine_view.h"

#include "platform/plain_text.h"

#include <QApplication>
#include <QContextMenuEvent>
#include <QHelpEvent>
#include <QMenu>
#include <QToolTip>
#include <QWebEnginePage>

#include <algorithm>
#include <array>

using namespace Qt::StringLiterals;

namespace quillon {

namespace {

/// What stays in the engine's context menu: nothing that saves files, opens other windows or shows sources.
constexpr std::array menuActions = {
    QWebEnginePage::Back,
    QWebEnginePage::Forward,
    QWebEnginePage::Reload,
    QWebEnginePage::Stop,
    QWebEnginePage::Cut,
    QWebEnginePage::Copy,
    QWebEnginePage::Paste,
    QWebEnginePage::PasteAndMatchStyle,
    QWebEnginePage::Undo,
    QWebEnginePage::Redo,
    QWebEnginePage::SelectAll,
    QWebEnginePage::Unselect,
    QWebEnginePage::OpenLinkInThisWindow,
    QWebEnginePage::CopyLinkToClipboard,
};

} // namespace

WebEngineView::WebEngineView(QWidget *parent) : QWebEngineView(parent)
{
    // Each renderer brings a widget of its own, which screen readers meet when the focus comes to it.
    connect(qApp, &QApplication::focusChanged, this, [this](QWidget *, QWidget *now) {
        if (now && isAncestorOf(now))
            now->setAccessibleName(tr("Page"));
    });
}

bool WebEngineView::event(QEvent *event)
{
    if (event->type() != QEvent::ToolTip)
        return QWebEngineView::event(event);
    // The engine gives the view the text of the page as it is, which may hold pictures of any file.
    QToolTip::showText(static_cast<QHelpEvent *>(event)->globalPos(), plainToolTip(toolTip()), this);
    return true;
}

void WebEngineView::contextMenuEvent(QContextMenuEvent *event)
{
    QMenu *menu = createStandardContextMenu();
    menu->setAttribute(Qt::WA_DeleteOnClose);
    const QList<QAction *> offered = menu->actions();
    for (QAction *action : offered) {
        const bool stays = action->isSeparator() || std::ranges::any_of(menuActions, [&](auto each) {
                               return page()->action(each) == action;
                           });
        if (!stays)
            menu->removeAction(action);
    }
    menu->popup(event->globalPos());
}

} // namespace quillon
