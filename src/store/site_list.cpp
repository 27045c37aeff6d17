#include "store/site_list.h"

#include "platform/atomic_file.h"
#include "platform/property_list.h"
#include "platform/xml_escaping.h"
#include "store/process_state.h"
#include "store/storage_status.h"

#include <QCoreApplication>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace quillon::site_list {

namespace {

class SiteListText
{
    Q_DECLARE_TR_FUNCTIONS(SiteList)
};

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

Result<ReadList> readToChange(QStringView fileName)
{
    auto bytes = atomic_file::read(path(fileName));
    if (bytes.isError(Error::Kind::Missing)) {
        const Result<> made = storeFile(path(fileName), property_list::emptyText(), bytes);
        bytes = made.isDone() ? property_list::emptyText() : Result<QByteArray>(made.error());
    }
    if (!bytes) {
        reportFailure(bytes.error());
        return bytes.error();
    }
    auto sites = property_list::read(*bytes);
    return ReadList{sites ? *std::move(sites) : StringDictionary(), *std::move(bytes)};
}

bool canHold(QStringView text)
{
    return std::ranges::all_of(text.toUcs4(), isXmlCharacter);
}

Result<> write(QStringView fileName, const StringDictionary &sites)
{
    return write(fileName, sites, atomic_file::read(path(fileName)));
}

Result<> write(QStringView fileName, const StringDictionary &sites, const Result<QByteArray> &old)
{
    const QString file = path(fileName);
    const QByteArray bytes = property_list::write(sites);
    if (!property_list::read(bytes))
        return reported(file, Error{Error::Kind::Refused, file,
                                    SiteListText::tr("the list would be too large to be read again")});
    if (old && !old->isEmpty() && !property_list::read(*old)) {
        if (Result<> kept = keepUnreadable(file, *old); !kept)
            return kept;
    }
    return storeFile(file, bytes, old);
}

} // namespace quillon::site_list
