#pragma once

#include <QStringList>

namespace quillon {

/// The toolbar "quillonToolbar": which items there are, which stand in it, in which order. An item is a
/// command of the main window, or something between commands.
namespace toolbar_layout {

inline const QString space = QStringLiteral("space");
inline const QString flexibleSpace = QStringLiteral("flexible space");
inline const QString separator = QStringLiteral("separator");

/// All items that may stand in the toolbar.
const QStringList &allowedItems();

/// Whether @p identifier may stand there more than once, as all that is no command may.
bool mayRepeat(const QString &identifier);

/// The order of a toolbar that nobody has changed.
QStringList defaultOrder();

/// The order as it was last stored; the default one when none was, unknown items left out.
QStringList storedOrder();
void storeOrder(const QStringList &identifiers);

} // namespace toolbar_layout

} // namespace quillon
