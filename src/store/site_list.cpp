#include "store/site_list.h"

#include "platform/atomic_file.h"
#include "platform/property_list.h"
#include "store/process_state.h"
#include "store/storage_status.h"

#include <algorithm>

namespace quillon::site_list {

namespace {

QString path(QStringView fileName)
{
    return mwqnAppSuppLoc + fileName;
}

} // namespace

Result<StringDictionary> stored(QStringView fileName)
{
    const auto bytes = atomic_file::read(path(fileName));
    if (!bytes)
        return bytes.error();
    auto sites = property_list::read(*bytes);
    if (!sites)
        return Error{sites.error().kind, path(fileName), sites.error().reason};
    return sites;
}

Result<StringDictionary> read(QStringView fileName)
{
    auto sites = stored(fileName);
    if (!sites.isError(Error::Kind::Missing))
        return sites;
    const Result<> made = storeFile(path(fileName), property_list::emptyText());
    return made.isDone() ? stored(fileName) : made.error();
}

Result<StringDictionary> readToChange(QStringView fileName)
{
    auto sites = read(fileName);
    if (sites.isError(Error::Kind::Unintelligible))
        return StringDictionary();
    if (!sites)
        reportFailure(sites.error());
    return sites;
}

bool canHold(QStringView text)
{
    const auto isAllowed = [](char32_t each) {
        return each >= U' ' ? !QChar::isSurrogate(each) && each != 0xfffe && each != 0xffff
                            : each == U'\t' || each == U'\n' || each == U'\r';
    };
    return std::ranges::all_of(text.toUcs4(), isAllowed);
}

Result<> write(QStringView fileName, const StringDictionary &sites)
{
    const QString file = path(fileName);
    const auto old = atomic_file::read(file);
    if (old && !old->isEmpty() && !property_list::read(*old)) {
        if (Result<> kept = keepUnreadable(file, *old); !kept)
            return kept;
    }
    return storeFile(file, property_list::write(sites), old);
}

} // namespace quillon::site_list
