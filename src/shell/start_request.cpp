#include "shell/start_request.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

using namespace Qt::StringLiterals;

namespace quillon {

namespace {

const QString filesKey = u"files"_s;
const QString titleKey = u"asksForTitle"_s;
const QString tokenKey = u"activationToken"_s;

Error refusal(const QString &reason)
{
    return {Error::Kind::Unintelligible, {}, reason};
}

bool isText(const QJsonValue &value)
{
    const QString text = value.toString();
    return value.isString() && text.size() <= StartRequest::longestText && !text.contains(QChar::Null);
}

} // namespace

QByteArray StartRequest::message() const
{
    const QJsonObject request{
        {filesKey, QJsonArray::fromStringList(files)}, {titleKey, asksForTitle}, {tokenKey, activationToken}};
    return QJsonDocument(request).toJson(QJsonDocument::Compact);
}

Result<StartRequest> StartRequest::read(const QByteArray &message)
{
    if (message.size() > mostBytes)
        return refusal(u"The files' names are too long together."_s);
    const QJsonObject object = QJsonDocument::fromJson(message).object();
    const QJsonArray files = object[filesKey].toArray();
    const QJsonValue title = object[titleKey];
    const QJsonValue token = object[tokenKey];
    if (object.size() != 3 || !object[filesKey].isArray() || !title.isBool() || !isText(token))
        return refusal(u"This is not what a start of Quillon asks for."_s);
    if (files.size() > mostFiles)
        return refusal(u"At most %1 files can be handed over at once."_s.arg(mostFiles));

    StartRequest request{.asksForTitle = title.toBool(), .activationToken = token.toString()};
    for (const auto &file : files) {
        if (!isText(file) || !file.toString().startsWith(u'/'))
            return refusal(u"One of the files is not named by an absolute path, or its name is too long."_s);
        request.files.append(file.toString());
    }
    return request;
}

} // namespace quillon
