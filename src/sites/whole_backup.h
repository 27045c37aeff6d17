#pragma once

#include "sites/title_transfer.h"

#include <memory>

/// Everything in one backup: a folder with the backup of the titles, that of the sites, and a copy of the
/// journal's database. What there is none of is left out.
namespace quillon::whole_backup {

inline constexpr QStringView extension = u"qnall";

/// Makes the folder @p to of everything. It appears when it is complete; one that lacks what could not be
/// read takes the place of no older one.
std::unique_ptr<TitleTransfer> backup(const QString &to, backups::Existing existing,
                                      backups::Mode mode = backups::Mode::Do);

/// Brings back what is in the backup @p from and not here; what is here stays as it is.
std::unique_ptr<TitleTransfer> restore(const QString &from, backups::Mode mode = backups::Mode::Do);

} // namespace quillon::whole_backup
