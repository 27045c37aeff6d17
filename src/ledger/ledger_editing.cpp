#include "ledger/ledger_editing.h"

#include "journal/journal.h"
#include "overview/title_list.h"
#include "platform/web_address.h"
#include "store/process_state.h"

#include <QCoreApplication>
#include <QDateTime>

using namespace Qt::StringLiterals;

namespace quillon::ledger_editing {

namespace {

class LedgerEditingText
{
    Q_DECLARE_TR_FUNCTIONS(LedgerEditing)
};

Error refusal(const QString &sentence)
{
    return {.kind = Error::Kind::Refused, .reason = sentence};
}

} // namespace

Result<Ledger> read(const QString &title)
{
    const auto stored = loadSummary(title);
    if (!stored && !stored.isError(Error::Kind::Missing))
        return stored.error();
    auto entries = Journal::ofDataFolder().find(
        [&title](Database &database) { return ledger::entries(database, title); });
    if (!entries)
        return entries.error();
    const Summary summary = stored.valueOr({});
    return Ledger{.version = summary.version.value_or(QString()),
                  .standings = standings(summary, *entries),
                  .entries = *std::move(entries)};
}

Result<ledger::Entry> planned(const QString &title, const Edit &edit)
{
    if (edit.address && !edit.address->isEmpty() && !isWebAddress(QUrl(*edit.address)))
        return refusal(LedgerEditingText::tr("%1 is no address of the web.").arg(*edit.address));
    const auto present = read(title);
    if (!present)
        return present.error();
    const Standing *there = standingAt(present->standings, edit.site);
    if (!there && !mwqnSCPreallSitesDict.contains(edit.site))
        return refusal(LedgerEditingText::tr("There is no site named %1.").arg(edit.site));
    const Standing now = there ? *there : Standing{.site = edit.site, .version = present->version};
    return ledger::Entry{.site = now.site,
                         .version = now.version,
                         .time = QDateTime::currentMSecsSinceEpoch(),
                         .state = edit.state,
                         .address = edit.address.value_or(now.address),
                         .note = edit.note.value_or(now.note)};
}

Result<> store(const QString &title, const ledger::Entry &entry)
{
    return Journal::ofDataFolder().change(
        [&](Database &database) { return ledger::addNote(database, title, entry); });
}

} // namespace quillon::ledger_editing
