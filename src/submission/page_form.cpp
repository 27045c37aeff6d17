#include "submission/page_form.h"

#include "platform/plain_text.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace quillon {

namespace {

constexpr qsizetype longestSign = 200; ///< UTF-16 units.
constexpr qsizetype longestCaption = 60;
constexpr qsizetype mostFields = 500;
constexpr qsizetype mostOptions = 1000;

/// The types that are filled; whatever else there is or will be is not.
constexpr std::array<QStringView, 9> filledTypes = {u"text", u"email", u"url",      u"tel",   u"number",
                                                    u"date", u"rich",  u"textarea", u"select"};

QStringList lines(const QVariantList &texts)
{
    QStringList result;
    for (const QVariant &each : texts.first(std::min(texts.size(), mostOptions)))
        result.append(plainLine(each.toString(), longestSign));
    return result;
}

PageField pageField(const QVariantMap &map)
{
    PageField field{.number = map.value(u"number"_s).toInt(),
                    .type = map.value(u"type"_s).toString(),
                    .maxLength = map.value(u"maxLength"_s, -1).toInt(),
                    .options = lines(map.value(u"options"_s).toList())};
    for (const SignKind &kind : signKinds)
        field.signs.*kind.text = plainLine(map.value(kind.name.toString()).toString(), longestSign);
    return field;
}

} // namespace

QString PageField::caption() const
{
    for (const auto sign : {&FieldSigns::label, &FieldSigns::around, &FieldSigns::placeholder,
                            &FieldSigns::name, &FieldSigns::id}) {
        if (!(signs.*sign).isEmpty())
            return plainLine(signs.*sign, longestCaption);
    }
    return QCoreApplication::translate("FormMatching", "(a field without a name)");
}

std::optional<PageForm> pageForm(const QVariant &answer)
{
    const QVariantMap map = answer.toMap();
    if (!map.contains(u"fields"_s))
        return std::nullopt;
    PageForm form{.number = map.value(u"number"_s).toInt(), .isCut = map.value(u"isCut"_s).toBool()};
    const QVariantList fields = map.value(u"fields"_s).toList();
    for (const QVariant &each : fields.first(std::min(fields.size(), mostFields))) {
        PageField field = pageField(each.toMap());
        if (std::ranges::find(filledTypes, QStringView(field.type)) != filledTypes.end())
            form.fields.append(std::move(field));
    }
    return form;
}

} // namespace quillon
