#include "submission/download_page.h"

#include <QLocale>

#include <algorithm>
#include <array>

using namespace Qt::StringLiterals;

namespace quillon {

namespace {

/// Types that are text though their names do not begin so.
constexpr std::array<QStringView, 6> textTypes = {
    u"application/json",         u"application/xml",     u"application/javascript",
    u"application/x-javascript", u"application/xml-dtd", u"application/x-sh",
};

QString row(QStringView caption, const QString &value)
{
    return u"<tr><th>%1</th><td>%2</td></tr>"_s.arg(caption, value.toHtmlEscaped());
}

} // namespace

bool isTextType(const QString &type)
{
    const QString plain = type.section(u';', 0, 0).trimmed().toLower();
    return plain.startsWith(u"text/") || plain.endsWith(u"+xml") || plain.endsWith(u"+json") ||
           std::ranges::find(textTypes, QStringView(plain)) != textTypes.end();
}

QString downloadPage(const OfferedFile &file)
{
    const QString size = file.size ? QLocale().formattedDataSize(*file.size) : u"unknown"_s;
    const QString rows = row(u"Name", file.name) + row(u"Type", file.type) + row(u"Size", size) +
                         row(u"Address", file.address);
    const QString failure =
        file.failure.isEmpty()
            ? QString()
            : u"<p>The file could not be fetched: %1.</p>"_s.arg(file.failure.toHtmlEscaped());
    const QString content = file.text
                                ? u"<pre id=\"%1\"></pre>"_s.arg(shownTextId)
                                : u"<p>The page offered this file for download. Nothing was stored; to keep "
                                  "the file, open its address in your own browser.</p>"_s;
    // One after the other would take a "%1" in a name for a place.
    return uR"(<!DOCTYPE html><html lang="en"><head><meta charset="utf-8"><title>File</title><style>)"
           "body{font:15px sans-serif;margin:2em;color:#222;background:#fff}"
           "th{text-align:left;vertical-align:top;padding:2px 1.5em 2px 0;font-weight:normal;color:#666}"
           "td{overflow-wrap:anywhere}pre{border-top:1px solid #ccc;padding-top:1em;white-space:pre-wrap}"
           "</style></head><body><table>"_s +
           rows + u"</table>"_s + failure + content + u"</body></html>"_s;
}

} // namespace quillon
