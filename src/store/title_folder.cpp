#include "store/title_folder.h"

#include "platform/descriptor.h"
#include "platform/folder_handle.h"
#include "platform/translated_text.h"
#include "store/process_state.h"

#include <QFile>

#include <sys/stat.h>

using namespace Qt::StringLiterals;

namespace quillon::title_folder {

bool isUsableName(QStringView name)
{
    return !name.isEmpty() && isEntryName(QString(name + extension));
}

std::optional<QString> path(QStringView name)
{
    if (!isUsableName(name))
        return std::nullopt;
    return mwqnAppSuppLoc + name + extension;
}

Result<bool> isThere(QStringView name)
{
    const std::optional<QString> folder = path(name);
    struct stat status = {};
    if (!folder || ::lstat(QFile::encodeName(*folder).constData(), &status) == 0)
        return folder.has_value();
    Error error =
        systemError(Error::Kind::Unreadable, *folder, QUILLON_TR_NOOP("Files", "it cannot be looked at"));
    return error.kind == Error::Kind::Missing ? Result<bool>(false) : Result<bool>(std::move(error));
}

bool exists(QStringView name)
{
    return isThere(name).valueOr(true);
}

} // namespace quillon::title_folder
