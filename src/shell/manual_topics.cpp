#include "shell/manual_topics.h"

#include "pad/field_catalogue.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace quillon::manual_topics {

namespace {

struct Topic
{
    QStringView name; ///< Of a widget or window.
    QStringView page;
};

// What is more special needs no place before what is less: names are looked up from the inside out.
constexpr Topic topics[] = {
    {u"emptyListPage", u"begin.html"},
    {u"swNamePanel", u"titles.html"},
    {u"submittedToTableView", u"overview.html#submitted"},
    {u"validationErrorsView", u"errors.html"},
    {u"findingsPane", u"findings.html#advice"},
    {u"rulePacksWindow", u"findings.html#packs"},
    {u"overviewView", u"overview.html"},
    {u"editView", u"editor.html"},
    {u"historyWindow", u"history.html"},
    {u"fixButton", u"changing.html#fix"},
    {u"fixWindow", u"changing.html#fix"},
    {u"releaseWindow", u"changing.html#release"},
    {u"bulkChangeWindow", u"changing.html#bulk"},
    {u"matrixWindow", u"matrix.html"},
    {u"ledgerDialog", u"matrix.html#ledger"},
    {u"tourStrip", u"matrix.html#tour"},
    {u"deletedTitlesWindow", u"deleted.html"},
    {u"backupsView", u"backups.html"},
    {u"addEditPanel", u"sites.html"},
    {u"prefsWindow", u"sites.html"},
    {u"fieldCopyPanel", u"submitting.html#paste"},
    {u"siteNotesDialog", u"submitting.html#notes"},
    {u"formFillingWindow", u"submitting.html#fill"},
    {u"onlineCheckWindow", u"submitting.html#check"},
    {u"submitWindow", u"submitting.html"},
    {u"popUpBrowserWindow", u"browser.html"},
    {u"manualWindow", u"manual.html"},
    {u"updatesSheet", u"program.html#updates"},
    {u"mainWindow", u"overview.html"},
};

} // namespace

QString pageOf(const QStringList &names)
{
    for (const QString &name : names) {
        if (const auto field = fieldNamed(name))
            return u"fields.html#"_s + padField(*field).control;
        const auto *topic = std::ranges::find(topics, QStringView(name), &Topic::name);
        if (topic != std::end(topics))
            return topic->page.toString();
    }
    return u"index.html"_s;
}

QStringList pages()
{
    QStringList all;
    for (const Topic &topic : topics)
        all.append(topic.page.toString());
    return all;
}

} // namespace quillon::manual_topics
