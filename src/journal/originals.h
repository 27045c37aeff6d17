#pragma once

#include "platform/result.h"

#include <QByteArray>
#include <QString>

/// The files that titles came from, byte for byte, kept in the journal.
namespace quillon::originals {

/// A file as it came.
struct Original
{
    QByteArray bytes;
    QString name; ///< Without its folder.
};

/// Which of two files is the one that a title came from.
enum class Keeping
{
    Newest, ///< The title is new; what was kept of an earlier one of its name gives way.
    First   ///< It may have been here before; then that is its original.
};

/// Keeps @p file as the one that the title came from; one that is the same already is not kept twice. The
/// title is there whatever comes of it; a failure has been told (Journal).
Result<> keep(const QString &title, const Original &file, Keeping keeping);

/// The file that the title came from; Missing without one.
Result<Original> of(const QString &title);

/// Whether there is one.
bool has(const QString &title);

} // namespace quillon::originals
