#pragma once

#include <QString>

#include <initializer_list>

class QLabel;
class QTableView;
class QWidget;

namespace quillon {

/// A table of whole rows, one line each, of which one at a time can be selected unless the caller says
/// otherwise, and none edited in place; the keys go from row to row, and typing finds one. Where sorting is
/// enabled, Ctrl+Shift with the arrow keys sorts. It belongs to @p parent.
QTableView *newRowTable(const QString &name, const QString &accessibleName, QWidget *parent);

/// The same with rows that are high enough for icon cells.
QTableView *newIconRowTable(const QString &name, const QString &accessibleName, QWidget *parent);

/// Makes the first columns of @p table so wide, in digits of its font, and none of them narrower than its
/// head.
void setColumnWidths(QTableView &table, std::initializer_list<int> digits);

/// Has the last column of @p table take what the others leave, and never less than its head: where there is
/// no room for both, the table is scrolled.
void stretchLastColumn(QTableView &table);

/// @p content under @p caption, which becomes its label; both belong to the result.
QWidget *captioned(QLabel *caption, QWidget *content);

} // namespace quillon
