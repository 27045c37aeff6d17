#include "manual/manual_pages.h"
#include "shell/manual_topics.h"
#include "support/testing.h"
#include "validation/field_rule_table.h"

#include <QCoreApplication>
#include <QRegularExpression>

namespace {

ManualPages installed()
{
    auto pages = ManualPages::read(manual::folder());
    EXPECT_TRUE(pages) << (pages ? QString() : pages.error().path + u": "_s + pages.error().reason);
    return pages.valueOr({});
}

/// Whether @p link, which stands on the page @p from, leads to a page of the manual, and to a place on it.
bool leadsSomewhere(const QString &link, const QString &from)
{
    if (link.startsWith(u"http"))
        return true;
    const QString page = link.section(u'#', 0, 0);
    const QString anchor = link.section(u'#', 1);
    const QByteArray text = contents(manual::folder() + u'/' + (page.isEmpty() ? from : page));
    return text.contains("</html>") &&
           (anchor.isEmpty() || text.contains(QByteArray("id=\"" + anchor.toUtf8() + "\"")));
}

} // namespace

class ManualTest : public testing::Test
{
private:
    int m_count = 0;
    QCoreApplication m_application{m_count, nullptr}; // The manual is found from where the program lies.
};

TEST_F(ManualTest, EveryPageIsInTheContentsAndEveryLinkLeadsSomewhere)
{
    static const QRegularExpression href(u"href=\"([^\"]*)\""_s);
    static const QRegularExpression source(u"<img src=\"([^\"]*)\" alt=\"[^\"]"_s);
    QStringList pictures;
    QStringList listed = {u"images"_s, u"index.html"_s, u"manual.css"_s};
    const ManualPages pages = installed();
    for (const ManualPage &page : pages.pages()) {
        EXPECT_FALSE(page.title.isEmpty() || page.group.isEmpty()) << page.file;
        listed.append(page.file);
    }
    listed.sort();
    EXPECT_EQ(names(manual::folder()), listed);
    for (const QString &page : std::as_const(listed)) {
        const QString text = QString::fromUtf8(contents(manual::folder() + u'/' + page));
        EXPECT_FALSE(text.contains(u"<?quillon")) << page;
        for (auto link = href.globalMatch(text); link.hasNext();) {
            const QString target = link.next().captured(1);
            EXPECT_TRUE(leadsSomewhere(target, page) || target == u"manual.css") << page << ": " << target;
        }
        EXPECT_EQ(text.count(u"<img"), text.count(source)) << page << ": a picture that says nothing";
        for (auto picture = source.globalMatch(text); picture.hasNext();)
            pictures.append(picture.next().captured(1).section(u'/', 1));
    }
    pictures.sort();
    EXPECT_EQ(names(manual::folder() + u"/images"_s), pictures) << "each is shown once, and each is there";
    for (const QString &page : manual_topics::pages())
        EXPECT_TRUE(leadsSomewhere(page, page)) << page;
    EXPECT_EQ(manual_topics::pageOf({u""_s, u"eula"_s, u"editView"_s}), u"fields.html#eula");
}

TEST_F(ManualTest, SearchingFindsWhatStandsOnAnyPage)
{
    const ManualPages pages = installed();
    const std::pair<QString, QString> searches[] = {
        {u"undo redo"_s, u"history.html#undo"_s},
        {u"The support email address should noy be empty."_s, u"fields.html#supportEmail"_s},
        {u"ICON end .png"_s, u"fields.html#iconURL"_s},
        {u"restore-title row"_s, u"commands.html#restore-title"_s},
        {u"text-too-long"_s, u"findings.html"_s},
        {u"exit statuses"_s, u"status.html"_s},
        {u"a word that stands nowhere"_s, u""_s},
        {u" "_s, u""_s}};
    for (const auto &[words, place] : searches) {
        QStringList found;
        for (const ManualHit &hit : pages.find(words))
            found.append(hit.section.file +
                         (hit.section.anchor.isEmpty() ? QString() : u'#' + hit.section.anchor));
        EXPECT_TRUE(place.isEmpty() ? found.isEmpty() : found.contains(place))
            << words << ": " << found.join(u' ');
    }
    EXPECT_EQ(pages.find(u"exit statuses"_s).value(0).section.file, u"status.html") << "headings come first";
    EXPECT_EQ(pages.placeOf(pages.find(u"exit statuses"_s).value(0).section), u"Exit statuses");
    EXPECT_EQ(pages.placeOf(pages.find(u"skip tour"_s).value(0).section),
              u"From site to site – Keep submissions up to date");
}

TEST_F(ManualTest, TheCommandsOfBothWindowsAreListedWithTheirKeys)
{
    const QByteArray menus = contents(manual::folder() + u"/menus.html"_s);
    for (const char *row :
         {"<td>Undo</td><td>Ctrl+Z</td><td></td>", "<td>Reload</td><td>F5, Ctrl+R</td><td></td>",
          "<td>Mark As Submitted</td><td>Ctrl+M</td><td>Note the selected site", "id=\"main-View\"",
          "id=\"submission-View\""})
        EXPECT_TRUE(menus.contains(row)) << row;
}

TEST_F(ManualTest, EveryMessageOfTheRulesIsExplained)
{
    const QString fields = QString::fromUtf8(contents(manual::folder() + u"/fields.html"_s));
    for (const FieldRule &rule : field_rules::table) {
        for (const QStringView message : {rule.summary.tooShort, rule.summary.tooLong, rule.summary.unfit})
            EXPECT_TRUE(fields.contains(message.toString().toHtmlEscaped())) << message.toString();
    }
}

TEST_F(ManualTest, OnlyItsOwnPagesAreItsPages)
{
    EXPECT_TRUE(manual::isPage(manual::address(u"index.html#top"_s)));
    for (const QString &page : {u"../../etc/passwd"_s, u"../x.html"_s, u"manual.css"_s})
        EXPECT_FALSE(manual::isPage(manual::address(page))) << page;
    EXPECT_FALSE(manual::isPage(QUrl(u"http://host.example/index.html"_s)));
    EXPECT_TRUE(manual::isPicture(manual::address(u"images/editor.png"_s)));
    for (const QString &page : {u"editor.png"_s, u"images/../../x.png"_s, u"images/index.html"_s})
        EXPECT_FALSE(manual::isPicture(manual::address(page))) << page;
}
