#include "submission/form_memory.h"

#include "journal/form_fields.h"

#include <QJsonDocument>
#include <QJsonObject>

namespace quillon::form_memory {

namespace {

/// Signs that a field lacks are left out.
QString json(const FieldSigns &signs)
{
    QJsonObject object;
    for (const SignKind &kind : signKinds) {
        if (const QString &text = signs.*kind.text; !text.isEmpty())
            object[kind.name] = text;
    }
    return QString::fromUtf8(QJsonDocument(object).toJson(QJsonDocument::Compact));
}

std::optional<FieldSigns> signsIn(const QString &json)
{
    const QJsonDocument document = QJsonDocument::fromJson(json.toUtf8());
    if (!document.isObject())
        return std::nullopt;
    FieldSigns signs;
    for (const SignKind &kind : signKinds)
        signs.*kind.text = document.object().value(kind.name).toString();
    return signs;
}

} // namespace

Result<QList<form_matching::Remembered>> of(const QString &site)
{
    const auto rows = form_fields::of(site);
    if (!rows)
        return rows.error();
    QList<form_matching::Remembered> remembered;
    for (const form_fields::Row &row : *rows) {
        if (const auto signs = signsIn(row.signs))
            remembered.append({.signs = *signs, .value = row.value});
    }
    return remembered;
}

Result<> remember(const QString &site, const QList<form_matching::Remembered> &fields)
{
    QList<form_fields::Row> rows;
    for (const form_matching::Remembered &each : fields)
        rows.append({.signs = json(each.signs), .value = each.value});
    return form_fields::remember(site, rows);
}

} // namespace quillon::form_memory
