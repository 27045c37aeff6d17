#include "sites/site_editing.h"

#include "journal/deleted_items.h"
#include "platform/regex.h"
#include "sites/site_lists.h"
#include "sites/site_renaming.h"
#include "store/process_state.h"
#include "store/site_list.h"
#include "store/storage_status.h"
#include "submission/submission_marks.h"

#include <QCoreApplication>

using namespace Qt::StringLiterals;

namespace quillon::site_editing {

namespace {

class SiteEditingText
{
    Q_DECLARE_TR_FUNCTIONS(SiteEditing)
};

using deleted_items::Item;

/// A list for somebody who only looks; one that cannot be read is told as a failure for as long as that
/// lasts.
StringDictionary listToShow(QStringView fileName)
{
    const auto sites = site_list::read(fileName);
    const QString path = mwqnAppSuppLoc + fileName;
    if (sites.isError(Error::Kind::Unreadable))
        reportFailure(sites.error());
    else if (mwqnFailedWrites.value(path).kind == Error::Kind::Unreadable)
        forgetFailure(path);
    return sites.valueOr({});
}

/// The length of the scheme that @p url begins with; 0 without one.
qsizetype schemeLength(const QString &url)
{
    static const Regex scheme(u"^([A-Za-z][A-Za-z0-9+.-]*):");
    const auto match = scheme.firstMatch(url);
    return match ? match->captured(1).size() : 0;
}

QString withoutBlanksAtEnds(QStringView text)
{
    while (text.endsWith(u' '))
        text.chop(1);
    while (text.startsWith(u' '))
        text = text.sliced(1);
    return text.toString();
}

/// The site as it is to be stored.
Site typedSite(const QString &name, const QString &url)
{
    return {withoutBlanksAtEnds(name), withoutBlanksAtEnds(normalisedUrl(url))};
}

/// Why @p site cannot be stored; Done when it can be.
SiteEdit judged(const Site &site, const QString &emptySentence)
{
    static constexpr qsizetype separatorLength = 3; // "://"
    if (site.name.isEmpty() || site.url.size() - schemeLength(site.url) == separatorLength)
        return {SiteEdit::Empty, emptySentence};
    if (!site_list::canHold(site.name) || !site_list::canHold(site.url))
        return {SiteEdit::NotXml,
                SiteEditingText::tr(
                    "The site name or URL contains a control character\nPlease enter it without")};
    return {};
}

SiteEdit notStored(Error error)
{
    if (error.kind == Error::Kind::Refused) // It is not the site that is refused.
        error.kind = Error::Kind::NotDone;
    return {SiteEdit::NotStored, failureLine(error), std::move(error)};
}

} // namespace

SiteCatalogue currentCatalogue()
{
    return SiteLists{.user = listToShow(site_list::userSites), .ignored = listToShow(site_list::ignoredSites)}
        .catalogue();
}

Result<SiteCatalogue> storedCatalogue()
{
    const auto user = site_list::stored(site_list::userSites);
    const auto ignored = site_list::stored(site_list::ignoredSites);
    for (const auto *list : {&user, &ignored}) {
        if (list->isError(Error::Kind::Unreadable))
            return list->error();
    }
    return SiteLists{.user = user.valueOr({}), .ignored = ignored.valueOr({})}.catalogue();
}

QString normalisedUrl(const QString &typed)
{
    QString url = typed;
    url.replace(u' ', u"%20"_s);
    return schemeLength(url) > 0 ? url : u"http://"_s + url;
}

SiteEdit addSite(const QString &name, const QString &url)
{
    const Site site = typedSite(name, url);
    SiteEdit refusal =
        judged(site, SiteEditingText::tr("You must enter a name and URL to add an entry to the sites list"));
    if (refusal.outcome != SiteEdit::Done)
        return refusal;
    auto lists = ReadSiteLists::read();
    if (!lists)
        return notStored(lists.error());
    const SiteCatalogue catalogue = lists->sites().catalogue();
    const bool nameExists = catalogue.sites.contains(site.name);
    const qsizetype sameUrl = catalogue.urls.indexOf(site.url);
    if (nameExists && sameUrl >= 0)
        return {SiteEdit::BothExist,
                SiteEditingText::tr(
                    "The site name and URL you entered both exist\nPlease enter a unique name and URL")};
    if (nameExists)
        return {
            SiteEdit::NameExists,
            SiteEditingText::tr("The site name already exists\nPlease enter a unique name for this site")};
    if (sameUrl >= 0)
        return {SiteEdit::UrlExists,
                SiteEditingText::tr("The entered URL is already associated with the site '%1'\n"
                                    "Please enter a unique URL for this site")
                    .arg(catalogue.sites[sameUrl])};
    SiteLists after = lists->sites();
    after.user[site.name] = site.url;
    if (const Result<> stored = lists->store(after, site_list::userSites); !stored.isDone())
        return notStored(stored.error());
    return {SiteEdit::Done, SiteEditingText::tr("Site Added Successfully")};
}

SiteEdit editSite(const Site &old, const QString &name, const QString &url)
{
    const Site edited = typedSite(name, url);
    SiteEdit refusal = judged(edited, SiteEditingText::tr("The name and URL fields cannot be empty"));
    if (refusal.outcome != SiteEdit::Done)
        return refusal;
    const bool isBearable = old.name == edited.name || submission_marks::canBeKept(edited.name);
    const auto isMarked = isBearable ? false : isMarkedAnywhere(old.name);
    if (!isMarked)
        return notStored(isMarked.error());
    if (*isMarked)
        return {
            SiteEdit::NotMarkable,
            SiteEditingText::tr("Titles are marked for this site, and their marks cannot bear the new name\n"
                                "Please enter a name without a comma or markup")};
    auto lists = ReadSiteLists::read();
    if (!lists)
        return notStored(lists.error());
    const bool wasDefault = isListedDefault(old, lists->sites().catalogue().ignored);
    const bool isDefault = becomesDefault(edited, lists->ignored.sites);
    const SiteLists after = lists->sites().withEdit(old, wasDefault, edited, isDefault);
    // Both sites are listed until marks and picture have followed: when that fails or is stopped, no mark is
    // of an unknown site, and the same edit can be made again.
    Result<> stored = lists->store(lists->sites().showingAlso(after), site_list::userSites);
    if (stored.isDone())
        stored = renameSite(old.name, edited.name);
    if (stored.isDone())
        stored = lists->store(after, site_list::userSites);
    if (!stored.isDone())
        return notStored(stored.error());
    return {SiteEdit::Done, SiteEditingText::tr("Site edited successfully")};
}

Result<> removeSites(const QStringList &names)
{
    auto lists = ReadSiteLists::read();
    if (!lists)
        return lists.error();
    const SiteCatalogue catalogue = lists->sites().catalogue();
    SiteLists after = lists->sites();
    StringDictionary own;
    for (const QString &name : names) {
        const auto listed = catalogue.urlByName.find(name);
        if (listed == catalogue.urlByName.end())
            continue;
        if (isListedDefault({name, listed->second}, catalogue.ignored))
            after.ignored[name] = mwqnDefaultSitesDict.at(name);
        else if (after.user.erase(name) > 0)
            own.insert(*listed);
    }
    // Before they go; where that fails, the status bar tells.
    const auto kept = own.empty() ? QList<Item>() : deleted_items::keepSites(own);
    Result<> stored = lists->store(after, site_list::userSites);
    QList<Item> stillThere = kept.valueOr({});
    stillThere.removeIf([&lists](const Item &site) { return !lists->user.sites.contains(site.name); });
    if (!stillThere.isEmpty())
        (void)deleted_items::forget(stillThere);
    return stored;
}

Result<> restoreSites(const QStringList &names)
{
    auto lists = ReadSiteLists::read();
    if (!lists)
        return lists.error();
    SiteLists after = lists->sites();
    for (const QString &name : names)
        after.ignored.erase(name);
    return lists->store(after, site_list::ignoredSites);
}

} // namespace quillon::site_editing
