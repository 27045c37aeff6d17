#include "ledger/mark_entries.h"

#include "journal/journal.h"
#include "ledger/standing.h"
#include "store/add_delete_import_edit.h"
#include "store/process_state.h"

#include <QDateTime>

namespace quillon::mark_entries {

namespace {

using ledger::Entry;
using ledger::State;

/// What is new for the ledger, which has @p known already.
QList<Entry> newEntries(const Summary &before, const Summary &after, const QString &marked,
                        const QList<Entry> &known)
{
    const QList<Standing> earlier = standings(before, known);
    const qint64 now = QDateTime::currentMSecsSinceEpoch();
    QList<Entry> entries;
    if (const auto version = markedVersion(after, marked)) {
        Entry entry{.site = marked, .version = *version, .time = now};
        if (const Standing *there = standingAt(earlier, marked)) {
            entry.before = there->version;
            entry.address = there->address;
            entry.note = there->note;
        }
        entries.append(entry);
    }
    for (const Standing &there : earlier) {
        if (there.isMarked && !markedVersion(after, there.site))
            entries.append({.site = there.site,
                            .version = there.version,
                            .time = now,
                            .state = State::Removed,
                            .address = there.address,
                            .note = there.note});
    }
    return entries;
}

} // namespace

void follow(const Summary &before, const Summary &after, const QString &marked)
{
    if (marked.isEmpty() && before.sites == after.sites)
        return;
    const Result<QByteArray> pad = AddDeleteImportEdit::returnDataObjectFor(u"data");
    const QString title = *mwqnSelSW;
    (void)Journal::ofDataFolder().change([&](Database &database) -> Result<> { // The status bar tells.
        const auto known = ledger::entries(database, title);
        if (!known)
            return known.error();
        for (const Entry &entry : newEntries(before, after, marked, *known)) {
            const bool isSent = entry.state == State::Sent && pad;
            Result<> added = ledger::add(database, title, entry, isSent ? std::optional(*pad) : std::nullopt);
            if (!added)
                return added;
        }
        return {};
    });
}

} // namespace quillon::mark_entries
