#include "submission/site_catalogue.h"

#include <QHash>

#include <array>
#include <charconv>

using namespace Qt::StringLiterals;

namespace quillon {

namespace {

/// The default sites while ignored ones are taken out. Finding one costs no walk through the list.
class RemainingDefaults
{
public:
    explicit RemainingDefaults(const StringDictionary &defaults)
    {
        for (const auto &[name, url] : defaults) {
            m_byName.insert(name, m_names.size());
            m_byUrl[url].append(m_names.size());
            m_names.append(name);
            m_urls.append(url);
        }
        m_taken.fill(false, m_names.size());
    }

    void moveByName(const QString &name, SiteCatalogue &to)
    {
        const auto place = m_byName.constFind(name);
        if (place != m_byName.cend() && !m_taken[*place])
            move(*place, to);
    }

    void moveFirstByUrl(const QString &url, SiteCatalogue &to)
    {
        const auto places = m_byUrl.find(url);
        if (places == m_byUrl.end())
            return;
        while (!places->isEmpty() && m_taken[places->first()])
            places->removeFirst();
        if (!places->isEmpty())
            move(places->first(), to);
    }

    void appendTo(SiteCatalogue &catalogue) const
    {
        for (qsizetype place = 0; place < m_names.size(); ++place) {
            if (m_taken[place])
                continue;
            catalogue.sites.append(m_names[place]);
            catalogue.urls.append(m_urls[place]);
            catalogue.urlByName.insert_or_assign(m_names[place], m_urls[place]);
        }
    }

private:
    void move(qsizetype place, SiteCatalogue &to)
    {
        m_taken[place] = true;
        to.ignored.append(m_names[place]);
        to.ignoredUrls.append(m_urls[place]);
    }

    QStringList m_names;
    QStringList m_urls;
    QList<bool> m_taken;
    QHash<QString, qsizetype> m_byName;
    QHash<QString, QList<qsizetype>> m_byUrl; ///< In the order of the list.
};

bool isDigit(char c)
{
    return c >= '0' && c <= '9';
}

} // namespace

SiteCatalogue mergedCatalogue(const StringDictionary &defaults, const StringDictionary &ignored,
                              const StringDictionary &userSites)
{
    SiteCatalogue catalogue;
    RemainingDefaults remaining(defaults);
    for (const auto &[name, url] : ignored) {
        remaining.moveByName(name, catalogue);
        remaining.moveFirstByUrl(url, catalogue);
    }
    for (const auto &[name, url] : userSites) {
        catalogue.sites.append(name);
        catalogue.urls.append(url);
    }
    catalogue.urlByName = userSites;
    remaining.appendTo(catalogue);
    return catalogue;
}

QString name(SiteState state)
{
    static constexpr std::array<QStringView, 3> names = {u"NotValidated", u"OldVers", u"Validated"};
    return names[size_t(state)].toString();
}

QList<SiteState> siteStates(const QStringList &sites, const Summary &summary)
{
    const QStringList marked = summary.siteList();
    const QStringList versions = summary.versionList();
    const QString current = summary.version.value_or(QString()).section(u',', 0, 0);
    const double currentNumber = leadingNumber(current);

    QHash<QStringView, qsizetype> firstMark;
    for (qsizetype index = marked.size() - 1; index >= 0; --index)
        firstMark.insert(marked[index], index);

    QList<SiteState> states;
    states.reserve(sites.size());
    for (const QString &site : sites) {
        const auto mark = firstMark.constFind(site);
        if (mark == firstMark.cend())
            states.append(SiteState::NotValidated);
        else if (current.isEmpty() || leadingNumber(versions.value(*mark)) < currentNumber)
            states.append(SiteState::OldVers);
        else
            states.append(SiteState::Validated);
    }
    return states;
}

double leadingNumber(QStringView text)
{
    // Long enough for any version, short enough for every number of that length to fit into a double.
    static constexpr qsizetype longestNumber = 300;
    const QByteArray bytes = text.trimmed().left(longestNumber).toLatin1();
    const char *begin = bytes.constData();
    const char *const end = begin + bytes.size();
    const bool negative = begin != end && *begin == '-';
    if (begin != end && (*begin == '-' || *begin == '+'))
        ++begin;
    double number = 0;
    // The conversion would take "inf" and "nan" besides.
    if (begin != end && (isDigit(*begin) || *begin == '.'))
        std::from_chars(begin, end, number, std::chars_format::fixed);
    return negative ? -number : number;
}

} // namespace quillon
