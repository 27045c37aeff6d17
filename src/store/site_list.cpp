#include "store/site_list.h"

#include "platform/property_list.h"
#include "store/process_state.h"
#include "store/storage_status.h"

#include <QFileInfo>

using namespace Qt::StringLiterals;

namespace quillon::site_list {

namespace {

/// Whether nothing would be lost if the file at @p path were replaced.
bool mayReplace(const QString &path)
{
    if (!QFileInfo::exists(path))
        return true;
    const auto bytes = atomic_file::read(path);
    if (!bytes) {
        reportFailure(path, u"the file cannot be read, so it is left as it is"_s);
        return false;
    }
    return bytes->isEmpty() || property_list::read(*bytes) || keepUnreadable(path, *bytes);
}

} // namespace

std::optional<StringDictionary> stored(QStringView fileName)
{
    const auto bytes = atomic_file::read(mwqnAppSuppLoc + fileName);
    return bytes ? property_list::read(*bytes) : std::nullopt;
}

std::optional<StringDictionary> read(QStringView fileName)
{
    const QString path = mwqnAppSuppLoc + fileName;
    if (!QFileInfo::exists(path))
        storeFile(path, property_list::emptyText());
    return stored(fileName);
}

bool isUnderstood(QStringView fileName)
{
    return !QFileInfo::exists(mwqnAppSuppLoc + fileName) || stored(fileName);
}

bool write(QStringView fileName, const StringDictionary &sites)
{
    const QString path = mwqnAppSuppLoc + fileName;
    return mayReplace(path) && storeFile(path, property_list::write(sites));
}

} // namespace quillon::site_list
