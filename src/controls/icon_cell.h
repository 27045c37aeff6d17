#pragma once

#include <QStringList>

namespace quillon {

/// What views read of a table beside Qt's own roles.
enum TableRole
{
    IconsRole = Qt::UserRole, ///< QStringList: the names of an icon cell's pictures.
    SortRole,                 ///< What the column sorts by: dates as dates, icon cells by their names.
};

/// A table cell made of small pictures, each named; the names are what the cell says to those who cannot see
/// it.
struct IconCell
{
    QStringList icons;
    Qt::Alignment alignment = {};
};

/// Pictures are this high and wide, in points.
inline constexpr int iconCellSize = 17;

/// The cell with one picture for each non-empty name of @p imageArray, in its order; with no list, the one
/// picture @p imageName. @p align is "left", "centre" or "right" (also with a capital); anything else is the
/// default.
IconCell tableValidateImageOK(const QString &imageName, const QStringList &imageArray, QStringView align);

/// What the picture @p icon says in words; its own name where it says no more.
QString iconDescription(const QString &icon);

/// The words of all pictures of @p cell.
QString description(const IconCell &cell);

} // namespace quillon
