#pragma once

#include "journal/database.h"

#include <QByteArray>
#include <QList>

/// What was sent where, and what became of it: one entry for each time that this changed. To be called inside
/// of Journal::change() or read().
namespace quillon::ledger {

enum class State : quint8
{
    Sent,    ///< The site was marked.
    Listed,  ///< The site shows the title.
    Refused, ///< The site does not want it.
    Gone,    ///< The site is no more.
    Removed, ///< The author took the mark away: nothing of the title is there.
};

/// What a state is called in the database and on the command line.
QString name(State state);
std::optional<State> stateNamed(QStringView name);

struct Entry
{
    QString site;
    QString version; ///< Of the title, as it was sent.
    qint64 time = 0; ///< Milliseconds since 1970 (UTC).
    State state = State::Sent;
    QString address = {};               ///< Of the listing; empty when it is not known.
    QString note = {};                  ///< The author's own.
    std::optional<QString> before = {}; ///< The version that was there until then; none at the first time.
};

/// The newest entry of a title and a site.
struct TitleEntry
{
    QString title;
    Entry entry;
};

/// Adds @p entry to what is known of @p title, with the PAD file that is there from now on; none when that is
/// not known.
Result<> add(Database &database, const QString &title, const Entry &entry,
             const std::optional<QByteArray> &pad);

/// Adds @p entry, which only says what became of what was sent before.
Result<> addNote(Database &database, const QString &title, const Entry &entry);

/// All entries of @p title, oldest first; none for a title that the journal does not know.
Result<QList<Entry>> entries(Database &database, const QString &title);

/// The newest entry of every title, deleted ones aside, and site.
Result<QList<TitleEntry>> newestOfAll(Database &database);

/// The PAD file that is at @p site, as it was sent; none when nothing is there, or when that is not known.
Result<std::optional<QByteArray>> lastSent(Database &database, const QString &title, const QString &site);

/// Gives the entries of the site @p from, and the answers of tours, the name @p to.
Result<> renameSite(Database &database, const QString &from, const QString &to);

} // namespace quillon::ledger
