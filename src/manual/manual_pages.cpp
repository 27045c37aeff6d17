#include "manual/manual_pages.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QXmlStreamReader>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace quillon {

namespace {

constexpr qsizetype excerptBefore = 40; ///< Characters ahead of the word that was found.
constexpr qsizetype excerptLength = 140;

bool isHeading(QStringView element)
{
    return element == u"h1" || element == u"h2" || element == u"h3";
}

/// Hands each token of the file at @p path to @p take.
template<typename Take>
Result<> walk(const QString &path, const Take &take)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return Error{file.exists() ? Error::Kind::Unreadable : Error::Kind::Missing, path,
                     file.errorString()};
    QXmlStreamReader xml(&file);
    while (!xml.atEnd()) {
        xml.readNext();
        take(xml);
    }
    if (xml.hasError())
        return Error{Error::Kind::Unintelligible, path,
                     u"line %1: %2"_s.arg(xml.lineNumber()).arg(xml.errorString())};
    return {};
}

/// Gathers the sections of one page, token by token.
class SectionReader
{
public:
    explicit SectionReader(const QString &file) : m_file(file) {}

    void take(const QXmlStreamReader &xml)
    {
        if (xml.isStartElement())
            begin(xml);
        else if (xml.isEndElement())
            end(xml.name());
        else if (xml.isCharacters() && m_isBody)
            append(xml.text());
    }
    QList<ManualSection> sections()
    {
        for (ManualSection &section : m_sections) {
            section.heading = section.heading.simplified();
            section.text = section.text.simplified();
        }
        return std::move(m_sections);
    }

private:
    void begin(const QXmlStreamReader &xml)
    {
        if (xml.name() == u"body")
            m_isBody = true;
        m_isHeading = isHeading(xml.name());
        if (m_isHeading)
            m_sections.append({m_file, xml.attributes().value(u"id"_s).toString(), {}});
    }
    void end(QStringView element)
    {
        if (isHeading(element))
            m_isHeading = false;
        else if (element != u"b" && element != u"i" && element != u"code" && element != u"a")
            append(u" "); // Blocks are words apart.
    }
    void append(QStringView text)
    {
        if (m_sections.isEmpty())
            return; // What stands above the title is the way to the contents.
        QString &whole = m_isHeading ? m_sections.last().heading : m_sections.last().text;
        whole += text;
    }

    const QString m_file;
    bool m_isBody = false;
    bool m_isHeading = false;
    QList<ManualSection> m_sections;
};

bool holdsAll(const QString &text, const QStringList &words)
{
    return std::ranges::all_of(
        words, [&text](const QString &word) { return text.contains(word, Qt::CaseInsensitive); });
}

/// Some of the text of @p section, from shortly before the first of @p words in it.
QString excerpt(const ManualSection &section, const QStringList &words)
{
    qsizetype first = section.text.size();
    for (const QString &word : words) {
        const qsizetype at = section.text.indexOf(word, 0, Qt::CaseInsensitive);
        first = at < 0 ? first : qMin(first, at);
    }
    if (first == section.text.size())
        first = 0;
    const qsizetype start = section.text.lastIndexOf(u' ', qMax(first - excerptBefore, 0LL)) + 1;
    const QString text = section.text.sliced(start, qMin(excerptLength, section.text.size() - start));
    return (start > 0 ? u"… "_s : QString()) + text;
}

} // namespace

Result<ManualPages> ManualPages::read(const QString &folder)
{
    ManualPages manual;
    if (const Result<> read = manual.readIndex(folder); !read)
        return read.error();
    for (ManualPage &page : manual.m_pages) {
        if (const Result<> read = manual.readPage(folder, page); !read)
            return read.error();
    }
    return manual;
}

Result<> ManualPages::readIndex(const QString &folder)
{
    QString group;
    bool isGroup = false;
    return walk(folder + u"/index.html"_s, [&](const QXmlStreamReader &xml) {
        if (xml.isStartElement() && xml.name() == u"a" && !group.isEmpty()) // The frame links to the index.
            m_pages.append({group, xml.attributes().value(u"href"_s).toString(), {}});
        if (xml.isStartElement() || xml.isEndElement())
            isGroup = xml.isStartElement() && xml.name() == u"h2";
        else if (isGroup)
            group = xml.text().toString();
    });
}

Result<> ManualPages::readPage(const QString &folder, ManualPage &page)
{
    SectionReader reader(page.file);
    Result<> read =
        walk(folder + u'/' + page.file, [&reader](const QXmlStreamReader &xml) { reader.take(xml); });
    if (!read)
        return read;
    const QList<ManualSection> sections = reader.sections();
    if (!sections.isEmpty())
        page.title = sections.first().heading;
    m_sections += sections;
    return {};
}

QString ManualPages::placeOf(const ManualSection &section) const
{
    const auto page = std::ranges::find(m_pages, section.file, &ManualPage::file);
    const bool isTitle = page == m_pages.end() || page->title == section.heading;
    return isTitle ? section.heading : section.heading + u" – " + page->title;
}

QList<ManualHit> ManualPages::find(const QString &words) const
{
    const QStringList all = words.split(u' ', Qt::SkipEmptyParts);
    QList<ManualHit> hits;
    if (all.isEmpty())
        return hits;
    for (const ManualSection &section : m_sections) {
        if (holdsAll(section.heading + u' ' + section.text, all))
            hits.append({section, excerpt(section, all)});
    }
    std::stable_partition(hits.begin(), hits.end(),
                          [&all](const ManualHit &hit) { return holdsAll(hit.section.heading, all); });
    return hits;
}

namespace manual {

QString folder()
{
    return QDir::cleanPath(QCoreApplication::applicationDirPath() + u"/" QUILLON_MANUAL_FOLDER);
}

QUrl address(const QString &page)
{
    const qsizetype anchor = page.indexOf(u'#');
    QUrl url = QUrl::fromLocalFile(folder() + u'/' + page.left(anchor));
    if (anchor >= 0)
        url.setFragment(page.sliced(anchor + 1));
    return url;
}

namespace {

bool isFileIn(const QString &folder, QStringView ending, const QUrl &address)
{
    return address.isLocalFile() && address.path().endsWith(ending) &&
           QDir::cleanPath(address.adjusted(QUrl::RemoveFilename).toLocalFile()) == folder;
}

} // namespace

bool isPage(const QUrl &address)
{
    return isFileIn(folder(), u".html", address);
}

bool isPicture(const QUrl &address)
{
    return isFileIn(folder() + u"/images", u".png", address);
}

} // namespace manual

} // namespace quillon
