#pragma once

#include "ledger/standing.h"

/// What the author notes of a submission.
namespace quillon::ledger_editing {

/// What is to be noted of a title on a site; what is none stays as it is.
struct Edit
{
    QString site;
    ledger::State state = ledger::State::Sent;
    std::optional<QString> address = {};
    std::optional<QString> note = {};
};

/// Where @p title stands with every site, and with @p entries how that came about, oldest first. Of a title
/// whose ledger cannot be read the error; one that has none has its marks.
Result<QList<Standing>> standingsOf(const QString &title, QList<ledger::Entry> *entries = nullptr);

/// The entry that @p edit makes in the ledger of @p title, with the version that is there; where nothing was
/// sent, the title's own. Refused, with a sentence, when the address is none
/// of the web, or when the title was never sent to the site and it is none of the catalogue.
Result<ledger::Entry> planned(const QString &title, const Edit &edit);

/// Stores it. Marks stay as they are.
Result<> store(const QString &title, const ledger::Entry &entry);

} // namespace quillon::ledger_editing
