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

/// Where a title stands with every site, and how that came about.
struct Ledger
{
    QString version;              ///< The title's own.
    QList<Standing> standings;    ///< Without entries, those of the marks.
    QList<ledger::Entry> entries; ///< Oldest first.
};

/// That of @p title. An error when its marks or its entries cannot be read; one without a summary has no
/// marks.
Result<Ledger> read(const QString &title);

/// The entry that @p edit makes in the ledger of @p title, with the version that is there; where nothing was
/// sent, the title's own. Refused, with a sentence, when the address is none of the web, or when the title
/// was never sent to the site and it is none of the catalogue.
Result<ledger::Entry> planned(const QString &title, const Edit &edit);

/// Stores it. Marks stay as they are.
Result<> store(const QString &title, const ledger::Entry &entry);

} // namespace quillon::ledger_editing
