#pragma once

#include "platform/result.h"
#include "platform/string_dictionary.h"

#include <QByteArray>
#include <QList>
#include <QString>

/// What the author deleted, kept in the journal for some time.
namespace quillon::deleted_items {

/// How many days something is kept.
inline constexpr qint64 keptDays = 90;

enum class Kind
{
    Title,
    Site ///< One of the author's own.
};

/// Something that can be brought back.
struct Item
{
    Kind kind = Kind::Title;
    qint64 id = 0; ///< Among those of its kind.
    QString name = {};
    QString address = {}; ///< Of a site.
    qint64 time = 0;      ///< When it was deleted: milliseconds since 1970 (UTC).
};

/// A file of a title, by its name in the file system's bytes.
struct File
{
    QByteArray name;
    QByteArray bytes;
};

/// Keeps @p files of the title @p name, which is about to be deleted, and whatever else the journal has of
/// it.
Result<Item> keepTitle(const QString &name, const QList<File> &files);

/// Keeps own sites, address by name, that are about to be deleted.
Result<QList<Item>> keepSites(const StringDictionary &sites);

/// What becomes of what has been kept long enough.
enum class Old
{
    Remove,
    Leave ///< For whoever may change nothing.
};

/// All that is kept, the newest first, without what is old.
Result<QList<Item>> all(Old old = Old::Remove);

/// The files of a title.
Result<QList<File>> filesOf(const Item &title);

/// Lets go of @p item, which is there again; what the journal has of a title is @p name's now.
Result<> release(const Item &item, const QString &name);

/// Removes @p items, and with a title whatever else the journal has of it.
Result<> forget(const QList<Item> &items);

} // namespace quillon::deleted_items
