#pragma once

#include "findings/rule_pack.h"

/// The rule packs that the author has switched on, for the windows.
namespace quillon::chosen_packs {

/// What is switched on, as it is now: a file is read anew.
struct Chosen
{
    QList<RulePack> packs;
    QStringList failures; ///< A sentence for each pack that cannot be had.
};
Chosen now();

/// The names of those that are switched on: ids of built-in packs, and paths of files.
QStringList names();

/// Keeps in the settings that only @p names are. They are until Quillon ends where that fails, which is told.
Result<> choose(const QStringList &names);

} // namespace quillon::chosen_packs
