#include "store/summary_file.h"

#include "pad/pad_document.h"
#include "platform/regex.h"
#include "platform/text_decoding.h"
#include "platform/tolerant_xml.h"

#include <array>

using namespace Qt::StringLiterals;

namespace quillon::summary_file {

namespace {

/// A value of the summary and its element.
struct Element
{
    QStringView tag;
    std::optional<QString> Summary::*value;
};

constexpr std::array<Element, 6> elements = {{
    {u"OTS_VERSION", &Summary::version},
    {u"OTS_RELEASE_DATE", &Summary::releaseDate},
    {u"OTS_OPERATING_SYSTEMS", &Summary::operatingSystems},
    {u"OTS_VALIDATED", &Summary::validated},
    {u"QN_SITES", &Summary::sites},
    {u"QN_VERSION", &Summary::versions},
}};

/// The lists with each entry but the last followed by "," and the last by @p end.
QString joined(QStringView start, const QStringList &entries, QStringView end)
{
    return entries.isEmpty() ? start.toString() : start + entries.join(u',') + end;
}

} // namespace

QString emptyText()
{
    Summary summary;
    summary.validated = u"0"_s;
    return u"<?xml version=\"1.0\" encoding=\"UTF-8\" ?>\n"_s + text(summary);
}

QString textForImport(const PadDocument &document)
{
    const TolerantXml &pad = document.xml();
    const auto version = pad.first(u"Program_Version");
    const auto day = pad.first(u"Program_Release_Day");
    const auto month = pad.first(u"Program_Release_Month");
    const auto value = [&pad](QStringView tag) { return pad.first(tag).value_or(QString()); };

    QString summary = emptyText();
    const auto fill = [&summary](QStringView tag, const QString &content) {
        const QString start = u'<' + tag + u'>';
        const QString end = u"</" + tag + u'>';
        summary = Regex(QString(start + end)).replaceAll(summary, QString(start + content + end));
    };
    if (version)
        fill(u"OTS_VERSION", *version);
    if (day && month)
        fill(u"OTS_RELEASE_DATE", *day + u'/' + *month + u'/' + value(u"Program_Release_Year"));
    // A program without a version gets no systems either, until the first full check brings both.
    if (version)
        fill(u"OTS_OPERATING_SYSTEMS", value(u"Program_OS_Support"));
    return summary;
}

QString text(const Summary &summary)
{
    const auto line = [](QStringView tag, const std::optional<QString> &value) -> QString {
        return u"\t\t<" + tag + u'>' + value.value_or(QString()) + u"</" + tag + u">\n";
    };
    return u"<QUILLON_SOFTWARE_INFORMATION>\n\t<OVERVIEW_TABLE_STRUCTURE>\n"_s +
           line(u"OTS_VERSION", summary.version) + line(u"OTS_RELEASE_DATE", summary.releaseDate) +
           line(u"OTS_OPERATING_SYSTEMS", summary.operatingSystems) +
           line(u"OTS_VALIDATED", summary.validated) +
           u"\t</OVERVIEW_TABLE_STRUCTURE>\n\t<SUBMISSION_INFORMATION>\n"_s +
           line(u"QN_SITES", summary.sites) + line(u"QN_VERSION", summary.versions) +
           u"\t</SUBMISSION_INFORMATION>\n</QUILLON_SOFTWARE_INFORMATION>"_s;
}

Summary parse(const QByteArray &bytes)
{
    const TolerantXml xml(decodedXmlText(bytes));
    Summary summary;
    for (const Element &element : elements)
        summary.*element.value = xml.first(element.tag);
    return summary;
}

QString withSubmissions(const QString &text, const QStringList &sites, const QStringList &versions)
{
    static const Regex sitesElement(u"<QN_SITES>.*</QN_SITES>");
    static const Regex versionsElement(u"<QN_VERSION>.*</QN_VERSION>");
    const QString withSites = sitesElement.replaceAll(text, joined(u"<QN_SITES>", sites, u"</QN_SITES>"));
    return versionsElement.replaceAll(withSites, joined(u"<QN_VERSION>", versions, u"<QN_VERSION>"));
}

} // namespace quillon::summary_file
