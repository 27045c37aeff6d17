#include "sites/site_lists.h"

#include "platform/property_list.h"
#include "store/process_state.h"
#include "submission/default_sites.h"

#include <algorithm>

namespace quillon {

namespace {

bool isDefaultName(const QString &name)
{
    return mwqnDefaultSitesDict.contains(name);
}

bool isDefaultUrl(const QString &url)
{
    return std::ranges::any_of(mwqnDefaultSitesDict, [&url](const auto &site) { return site.second == url; });
}

/// Writes @p sites as the list @p name in place of @p old, unless they are the same.
Result<> storeList(QStringView name, const StringDictionary &sites, site_list::ReadList &old)
{
    if (sites == old.sites)
        return {};
    Result<> stored = site_list::write(name, sites, old.bytes);
    if (stored.isDone())
        old = {.sites = sites, .bytes = property_list::write(sites)};
    return stored;
}

} // namespace

SiteCatalogue SiteLists::catalogue() const
{
    setDefaultSites();
    return mergedCatalogue(mwqnDefaultSitesDict, ignored, user);
}

SiteLists SiteLists::withEdit(const Site &old, bool wasDefault, const Site &edited, bool isDefault) const
{
    SiteLists lists = *this;
    if (wasDefault && isDefault) {
        lists.user.erase(edited.name);
        lists.ignored.erase(edited.name);
    } else if (wasDefault) {
        lists.user[edited.name] = edited.url;
        lists.ignored[old.name] = old.url;
    } else if (isDefault) {
        lists.user.erase(old.name);
        lists.ignored.erase(edited.name);
    } else {
        lists.user.erase(old.name);
        lists.user[edited.name] = edited.url;
    }
    return lists;
}

SiteLists SiteLists::showingAlso(SiteLists after) const
{
    after.user.insert(user.begin(), user.end());
    std::erase_if(after.ignored, [this](const auto &site) { return !ignored.contains(site.first); });
    return after;
}

Result<ReadSiteLists> ReadSiteLists::read()
{
    auto user = site_list::readToChange(site_list::userSites);
    if (!user)
        return user.error();
    auto ignored = site_list::readToChange(site_list::ignoredSites);
    if (!ignored)
        return ignored.error();
    return ReadSiteLists{*std::move(user), *std::move(ignored)};
}

Result<> ReadSiteLists::store(const SiteLists &after, QStringView first)
{
    const auto storeNamed = [&](QStringView name) {
        return name == site_list::userSites ? storeList(name, after.user, user)
                                            : storeList(name, after.ignored, ignored);
    };
    Result<> one = storeNamed(first);
    if (!one.isDone())
        return one;
    const Result<> other =
        storeNamed(first == site_list::userSites ? site_list::ignoredSites : site_list::userSites);
    return other ? one : other;
}

bool isListedDefault(const Site &site, const QStringList &hidden)
{
    const auto found = mwqnDefaultSitesDict.find(site.name);
    return found != mwqnDefaultSitesDict.end() && found->second == site.url && !hidden.contains(site.name);
}

bool becomesDefault(const Site &edited, StringDictionary ignored)
{
    ignored.erase(edited.name);
    return isDefaultName(edited.name) && isDefaultUrl(edited.url) &&
           !mergedCatalogue(mwqnDefaultSitesDict, ignored, {}).ignored.contains(edited.name);
}

} // namespace quillon
