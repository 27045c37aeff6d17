#include "store/title_folder.h"

#include "store/process_state.h"

#include <QFile>

#include <cerrno>
#include <sys/stat.h>

namespace quillon::title_folder {

bool isUsableName(QStringView name)
{
    static constexpr qsizetype maxFileNameBytes = 255;
    return !name.isEmpty() && !name.contains(u'/') && !name.contains(QChar(u'\0')) &&
           name.toUtf8().size() + extension.size() <= maxFileNameBytes;
}

std::optional<QString> path(QStringView name)
{
    if (!isUsableName(name))
        return std::nullopt;
    return mwqnAppSuppLoc + name + extension;
}

bool exists(QStringView name)
{
    const std::optional<QString> folder = path(name);
    struct stat status = {};
    return folder && (::lstat(QFile::encodeName(*folder).constData(), &status) == 0 ||
                      (errno != ENOENT && errno != ENOTDIR));
}

} // namespace quillon::title_folder
