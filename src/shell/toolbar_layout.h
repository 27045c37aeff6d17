#pragma once

#include <QList>
#include <QStringList>

namespace quillon {

/// What can stand in the main window's toolbar: an action, or something between actions.
struct ToolbarItem
{
    QString identifier;
    QString icon; ///< Resource path; empty for what stands between actions.
};

/// The toolbar "quillonToolbar": which items there are, which stand in it, in which order.
namespace toolbar_layout {

inline const QString space = QStringLiteral("space");
inline const QString flexibleSpace = QStringLiteral("flexible space");
inline const QString separator = QStringLiteral("separator");

/// All items that may stand in the toolbar.
const QList<ToolbarItem> &allowedItems();

/// Whether @p identifier may stand there more than once.
bool mayRepeat(const QString &identifier);

/// The order of a toolbar that nobody has changed.
QStringList defaultOrder();

/// The order as it was last stored; the default one when none was, unknown items left out.
QStringList storedOrder();
void storeOrder(const QStringList &identifiers);

} // namespace toolbar_layout

} // namespace quillon
