#pragma once

#include <QStringList>

/// Which page of the manual belongs to what the author works in.
namespace quillon::manual_topics {

/// The page for the first of @p names that has one; they are the object names of a widget, of its parent and
/// so on up to its window. A field of the editor has a place of its own. Else the contents.
QString pageOf(const QStringList &names);

/// Every page that the table names.
QStringList pages();

} // namespace quillon::manual_topics
