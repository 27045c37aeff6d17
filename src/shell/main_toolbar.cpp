#include "shell/main_toolbar.h"

#include "shell/customise_toolbar_dialog.h"
#include "shell/toolbar_layout.h"
#include "widgets/command_set.h"

#include <QEvent>

using namespace Qt::StringLiterals;

namespace quillon {

namespace {

/// A gap in the toolbar: of an icon's width, or as wide as there is room.
QWidget *newSpace(bool flexible)
{
    auto *space = new QWidget;
    space->setSizePolicy(flexible ? QSizePolicy::Expanding : QSizePolicy::Fixed, QSizePolicy::Preferred);
    if (!flexible)
        space->setFixedWidth(32);
    return space;
}

} // namespace

MainToolbar::MainToolbar(const CommandSet &commands, QWidget *parent)
    : QToolBar(tr("Toolbar"), parent), m_commands(commands)
{
    setObjectName(u"quillonToolbar"_s);
    setToolButtonStyle(Qt::ToolButtonTextUnderIcon);
    setIconSize({32, 32});
    setMovable(false);
    fill();
}

void MainToolbar::fill()
{
    clear();
    for (const QString &identifier : toolbar_layout::storedOrder())
        addItem(identifier);
}

void MainToolbar::addItem(const QString &identifier)
{
    if (identifier == toolbar_layout::separator) {
        addSeparator();
    } else if (toolbar_layout::mayRepeat(identifier)) {
        addWidget(newSpace(identifier == toolbar_layout::flexibleSpace));
    } else {
        QAction *action = m_commands.action(identifier);
        addAction(action);
        widgetForAction(action)->installEventFilter(this);
    }
}

/// The buttons say all that there is to say: they have no tool tips.
bool MainToolbar::eventFilter(QObject *watched, QEvent *event)
{
    return event->type() == QEvent::ToolTip || QToolBar::eventFilter(watched, event);
}

void MainToolbar::customise()
{
    auto *dialog = new CustomiseToolbarDialog(m_commands, window());
    connect(dialog, &CustomiseToolbarDialog::orderStored, this, &MainToolbar::fill);
    dialog->open();
}

} // namespace quillon
