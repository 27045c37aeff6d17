#include "platform/text_decoding.h"
#include "platform/tolerant_xml.h"
#include "platform/xml_source.h"
#include "support/growth.h"
#include "support/tables.h"

#include <QStringList>

#include <map>
#include <random>

/// Expects that @p content reads as @p expected, and that what surrounds it is not touched.
static void expectContent(const QString &content, const QString &expected)
{
    const QString text = u"<?xml version='1.0'?><r><g><a>" + content +
                         u"</a><b>B --> &amp;</b></g><c><![CDATA[</i>]]></c><!-- e --><?f?></r>";
    const TolerantXml xml(text);
    EXPECT_EQ(xml.first(u"a"), expected) << text;
    EXPECT_EQ(xml.first(u"b"), u"B --> &"_s) << text;
    EXPECT_EQ(xml.first(u"c"), u"</i>"_s) << text;
}

TEST(TolerantXmlTest, WhatIsNoMarkupIsText)
{
    const QString contents =
        u"| kept \r\n\t blanks  |Smith & Sons|&nbsp; &copy & &unknown; &;|x&#0;y &#x00; "
        u"&#4294967296; &#18446744073709551681; &#xD800;&#57343;&#x110000; &#; &#x; &#65 &#-65;|page\fbreak|"
        "1 < 2 > 0|x<y|<|<<>>|see <https://example.org/licence/>.|<someone@example.org>|never opened</i>.|"
        "<i a=1>unquoted|<i a='x|</a b>|x <!-- y|x <![CDATA[ y|x <? y|x <!DOCTYPE y|x --> ]]> ?> y"_s;
    for (const QString &content : contents.split(u'|'))
        expectContent(content, content);
}

TEST(TolerantXmlTest, MarkupIsMendedWithinItsElement)
{
    for (const QStringList &row : table(u"mended"_s))
        expectContent(row[0], row[1]);
}

TEST(TolerantXmlTest, FindsTheFirstElementOfANameAtAnyDepth)
{
    const TolerantXml xml(u"<!DOCTYPE r [<!ENTITY e 'boom'><!ENTITY f SYSTEM 'file:///etc/passwd'>]>"
                          "<r><x><a/></x><a>2</a><A>&e;&f;</A><ä>ü</ä></r>"_s);
    EXPECT_EQ(xml.first(u"a"), u""_s);
    EXPECT_EQ(xml.count(u"a"), 2);
    EXPECT_EQ(xml.first(u"A"), u"&e;&f;"_s);
    EXPECT_EQ(xml.first(u"ä"), u"ü"_s);
    EXPECT_EQ(xml.count(u"b"), 0);
    EXPECT_EQ(TolerantXml(u"<r><i>x <!DOCTYPE\n<a>1</a></r>"_s).first(u"a"), u"1"_s);
    EXPECT_EQ(TolerantXml(u"<!DOCTYPE r [<!ENTITY e 'boom'>]><r><a>1 < 2</a></r>"_s).first(u"a"), u"1 < 2"_s);
    for (const QString &text : {u""_s, u"no markup"_s, u"<"_s, u"<!-- -->"_s, u"</r>"_s}) {
        EXPECT_EQ(TolerantXml(text).first(u"r"), std::nullopt) << text;
        EXPECT_EQ(TolerantXml(text).serialised(), QString()) << text;
    }
}

TEST(TolerantXmlTest, SerialisesEmptyElementsWithAnEndTag)
{
    const TolerantXml xml(u"<r><a x='1'/> <i>S</i> &amp; S & T<b>1 &gt; 0\r\n\f &#252;</b><i>open</r>"_s);
    const QString text =
        u"<r><a x=\"1\"></a> <i>S</i> &amp; S &amp; T<b>1 &gt; 0\r\n\f ü</b><i>open</i></r>"_s;
    EXPECT_EQ(xml.serialised(), text);
    EXPECT_EQ(TolerantXml(text).serialised(), text);
}

TEST(TolerantXmlTest, ReadsWhateverIsPiledUp)
{
    const QString deep = u"<d>"_s.repeated(100'000);
    EXPECT_EQ(TolerantXml(QString(deep + u"x" + u"</d>"_s.repeated(100'000))).first(u"d"), u"x"_s);
    EXPECT_EQ(TolerantXml(QString(deep + u"x")).count(u"d"), 100'000);
    EXPECT_EQ(TolerantXml(u"<a "_s.repeated(3'500'000)).count(u"a"), 0);
}

using Fields = std::map<QString, QString>;

static QString documentOf(const Fields &fields)
{
    QString text = u"<?xml version='1.0'?>\n<R>\n<!-- <F1>old</F1> --><G1>"_s;
    for (const auto &[name, content] : fields) {
        text += u"\n<" + name + u'>' + content + u"</" + name + u'>';
        text += name == u"F3" ? u"</G1><!-- between --><?note?><G2>"_s : QString();
    }
    return text + u"</G2></R>";
}

static Fields valuesOf(const Fields &fields)
{
    const TolerantXml xml(documentOf(fields));
    Fields values;
    for (const auto &[name, content] : fields)
        values[name] = xml.first(name).value_or(u"(missing)"_s);
    return values;
}

TEST(TolerantXmlTest, AFaultInOneFieldChangesNoOther)
{
    const Fields sound = {
        {u"F1"_s, u"Smith &amp; Sons"_s},       {u"F2"_s, u"go --> there ?> now ]]&gt;"_s},
        {u"F3"_s, u" two\n\tlines > 1 "_s},     {u"F4"_s, u"<![CDATA[<p> & </p></i>]]>"_s},
        {u"F5"_s, u"a<!-- </i> remark -->b"_s}, {u"F6"_s, u"say \"yes\" or 'no' = /> & <i>so</i>"_s}};
    const QStringList faults =
        u"& < > \" ' &#0; \f <i> </i> <i|x=' <i|x= <p/ <https://e.org/> <!-- --> <![CDATA[ "
        "]]> <? <!DOCTYPE <F3> <F5|x='1'> <F2> <! </ <R> | </|F4>"_s.split(u' ');
    // These close what stands around the field, so each stands alone.
    const QStringList closingFaults = {u"</G1>"_s, u"</G2>"_s, u"</R>"_s, u"</F1>"_s, u"</F6>"_s};
    const Fields expected = valuesOf(sound);
    ASSERT_EQ(expected.at(u"F4"_s), u"<p> & </p></i>"_s);

    for (unsigned seed = 0; seed < 5000 && !HasFailure(); ++seed) {
        std::mt19937 random(seed);
        const auto pick = [&random](qsizetype size) { return qsizetype(random() % size_t(size)); };
        Fields fields = sound;
        auto &[name, content] = *std::next(fields.begin(), pick(qsizetype(fields.size())));
        const QStringList &pieces = seed % 8 == 0 ? closingFaults : faults;
        for (qsizetype count = seed % 8 == 0 ? 1 : pick(3) + 1; count > 0; --count)
            content.insert(pick(content.size() + 1),
                           QString(pieces[pick(pieces.size())]).replace(u'|', u' '));
        Fields values = valuesOf(fields);
        values[name] = expected.at(name);
        EXPECT_EQ(values, expected) << "seed " << seed << "\n" << documentOf(fields);
    }
}

TEST(TolerantXmlTest, TheWorkGrowsWithTheLengthOfWhateverIsPiledUp)
{
    const QByteArray pieces = "<a>|</a>|<a x='|<!--|<!-- </r>|<!-- </a>|<![CDATA[|<?|&#00|<!DOCTYPE "
                              "|<a><b></a>|<a/>&|\xe9<|/>|<!----><a ";
    for (const QByteArray &piece : pieces.split('|')) {
        const double growth = growthOfEightfold(2'000, [&piece](qsizetype count) {
            const QString text = decodedXmlText("<r>" + piece.repeated(count) + "--></r><z>end</z>");
            EXPECT_EQ(TolerantXml(text).first(u"z"), u"end"_s);
            const QByteArray utf8 = text.toUtf8();
            const XmlSource source(utf8);
            EXPECT_EQ(source.text("z"), "end");
            EXPECT_EQ(source.element("z"), "<z>end</z>");
            EXPECT_LE(source.element("a").size(), utf8.size());
        });
        EXPECT_LT(growth, tolerableGrowth) << piece;
    }
}
