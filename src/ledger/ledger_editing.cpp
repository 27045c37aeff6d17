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

Result<QList<ledger::Entry>> entriesOf(const QString &title)
{
    return Journal::ofDataFolder().find([&](Database &database) { return ledger::entries(database, title); });
}

Error refusal(const QString &sentence)
{
    return {.kind = Error::Kind::Refused, .reason = sentence};
}

} // namespace

Result<QList<Standing>> standingsOf(const QString &title, QList<ledger::Entry> *entries)
{
    const auto summary = loadSummary(title);
    if (!summary && !summary.isError(Error::Kind::Missing))
        return summary.error();
    auto found = entriesOf(title);
    if (!found)
        return found.error();
    QList<Standing> all = standings(summary.valueOr({}), *found);
    if (entries)
        *entries = *std::move(found);
    return all;
}

Result<ledger::Entry> planned(const QString &title, const Edit &edit)
{
    if (edit.address && !edit.address->isEmpty() && !isWebAddress(QUrl(*edit.address)))
        return refusal(LedgerEditingText::tr("%1 is no address of the web.").arg(*edit.address));
    const auto all = standingsOf(title);
    if (!all)
        return all.error();
    const Standing *there = standingAt(*all, edit.site);
    if (!there && !mwqnSCPreallSitesDict.contains(edit.site))
        return refusal(LedgerEditingText::tr("There is no site named %1.").arg(edit.site));
    Standing now = there ? *there : Standing{.site = edit.site};
    if (!there) {
        const auto summary = loadSummary(title);
        if (!summary && !summary.isError(Error::Kind::Missing))
            return summary.error();
        now.version = summary ? summary->version.value_or(QString()) : QString();
    }
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
