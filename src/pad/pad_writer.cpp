#include "pad/pad_writer.h"

#include "pad/layout.h"
#include "pad/pad_form.h"
#include "platform/application_info.h"
#include "platform/regex.h"
#include "platform/text_decoding.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace quillon::pad_writer {

namespace {

/// A value by its element's name.
struct FixedValue
{
    QStringView element;
    QString value;
};

using FixedValues = QList<FixedValue>;

const FixedValues &headerValues()
{
    static const FixedValues values = {
        {u"MASTER_PAD_VERSION", u"3.10"_s},
        {u"MASTER_PAD_EDITOR", u"Quillon %1 %2"_s.arg(application_info::version, application_info::webPage)},
        {u"MASTER_PAD_INFO",
         u"Portable Application Description, or PAD for short, is a data set that is used by shareware "
         u"authors "
         "to disseminate information to anyone interested in their software products. To find out more go to "_s +
             application_info::padStandardPage},
    };
    return values;
}

const FixedValues &skeletonValues()
{
    static const FixedValues values = {
        {u"File_Size_K", u"0 KB"_s}, {u"File_Size_MB", u"0 MB"_s}, {u"Has_Expire_Info", u"N"_s}};
    return values;
}

QString fixedValue(const FixedValues &values, QStringView element)
{
    for (const FixedValue &each : values) {
        if (each.element == element)
            return each.value;
    }
    return {};
}

/// Walks the layout; @p valueOf gives the value of an element outside the header.
template<typename ValueOf>
QByteArray written(const ValueOf &valueOf)
{
    QString text = layoutOpening();
    for (const LayoutLine &line : padLayout) {
        text += lineStart(line);
        if (line.kind == LayoutLine::Element) {
            const auto field = fieldOfElement(line.tag);
            text += (field ? valueOf(*field) : fixedValue(headerValues(), line.tag)) + endTag(line.tag);
        }
        text += u'\n';
    }
    return (text + layoutClosing()).toUtf8();
}

/// The text of @p stored. Where letters depend on it, it says that it is UTF-8: files of other tools may name
/// the encoding that they came in. ASCII is read alike in every encoding of single bytes, so there it stays.
QString storedText(const QByteArray &stored)
{
    static const Regex declared(
        uR"(^(\s*<\?xml[^<>]*?encoding\s*=\s*["'])(?!(?i:utf-8)["'])[A-Za-z0-9._:-]+)");
    static const Regex wide(uR"(^\s*<\?xml[^<>]*?encoding\s*=\s*["'](?i:utf-?(?:16|32)|ucs|iso-10646))");
    const QString text = stored.isValidUtf8() ? QString::fromUtf8(stored) : decodedXmlText(stored);
    const bool isAscii = std::ranges::all_of(text, [](QChar each) { return each.unicode() < 0x80; });
    return isAscii && !wide.firstMatch(text) ? text : declared.replaceAll(text, u"$1UTF-8");
}

} // namespace

QByteArray skeleton()
{
    return written([](FieldId field) { return fixedValue(skeletonValues(), padField(field).element); });
}

QByteArray document(const PadForm &form)
{
    return written([&form](FieldId field) { return form.value(field); });
}

QByteArray exported(const QByteArray &stored)
{
    return storedText(stored).replace(u" & "_s, u" &amp; "_s).toUtf8();
}

} // namespace quillon::pad_writer
