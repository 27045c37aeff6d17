#include "findings/rule_pack.h"

#include "platform/atomic_file.h"

#include <QCoreApplication>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace quillon {

namespace {

class RulePackText
{
    Q_DECLARE_TR_FUNCTIONS(RulePack)
};

template<typename Fits>
bool any(const QStringList &words, const Fits &fits)
{
    return std::ranges::any_of(words, fits);
}

/// Reads a pack and keeps the first thing that is wrong with it.
class PackParser
{
public:
    RulePack pack(const QJsonObject &object)
    {
        expectOnly(object, {u"id"_s, u"title"_s, u"rules"_s});
        RulePack pack{.id = identifier(object), .title = string(object, u"title"_s), .rules = {}};
        const QJsonArray rules = object[u"rules"_s].toArray();
        for (const auto &rule : rules) {
            m_place = RulePackText::tr("rule %1: ").arg(pack.rules.size() + 1);
            pack.rules.append(this->rule(rule.toObject()));
            pack.rules.last().id.prepend(pack.id + u'/');
        }
        if (pack.rules.isEmpty())
            complain(RulePackText::tr("there are no rules"));
        return pack;
    }

    /// Empty when nothing is.
    [[nodiscard]] const QString &complaint() const { return m_complaint; }

private:
    void complain(const QString &what)
    {
        if (m_complaint.isEmpty())
            m_complaint = m_place + what;
    }

    void expectOnly(const QJsonObject &object, const QStringList &keys)
    {
        for (const QString &key : object.keys()) {
            if (!keys.contains(key))
                complain(RulePackText::tr("“%1” is not known").arg(key));
        }
    }

    QString string(const QJsonObject &object, const QString &key)
    {
        if (object[key].toString().isEmpty())
            complain(RulePackText::tr("“%1” has to be a text").arg(key));
        return object[key].toString();
    }

    QString identifier(const QJsonObject &object)
    {
        static const Regex allowed(u"^[a-z0-9]+(?:-[a-z0-9]+)*\\z");
        QString id = string(object, u"id"_s);
        if (!allowed.firstMatch(id))
            complain(RulePackText::tr("“id” takes small letters, digits and hyphens"));
        return id;
    }

    QStringList strings(const QJsonObject &object, const QString &key)
    {
        const QJsonArray values = object[key].toArray();
        QStringList all;
        for (const auto &value : values)
            all.append(value.toString());
        if (object.contains(key) && (all.isEmpty() || all.contains(QString())))
            complain(RulePackText::tr("“%1” has to be a list of texts").arg(key));
        return all;
    }

    QList<FieldId> fields(const QJsonObject &object)
    {
        QList<FieldId> fields;
        for (const QString &name : strings(object, u"fields"_s)) {
            if (const auto field = fieldNamed(name))
                fields.append(*field);
            else
                complain(RulePackText::tr("there is no field “%1”").arg(name));
        }
        if (fields.isEmpty())
            complain(RulePackText::tr("it names no fields"));
        return fields;
    }

    Severity severity(const QJsonObject &object)
    {
        const QString name = string(object, u"severity"_s);
        if (name != u"warning" && name != u"hint")
            complain(RulePackText::tr("“severity” is “warning” or “hint”"));
        return name == u"hint" ? Severity::Hint : Severity::Warning;
    }

    PackRule rule(const QJsonObject &object)
    {
        expectOnly(object,
                   {u"id"_s, u"severity"_s, u"summary"_s, u"explanation"_s, u"fields"_s, u"beginsWith"_s,
                    u"beginsNotWith"_s, u"endsWith"_s, u"maxLength"_s, u"matches"_s});
        PackRule rule{.id = identifier(object),
                      .severity = severity(object),
                      .summary = string(object, u"summary"_s),
                      .explanation = string(object, u"explanation"_s),
                      .fields = fields(object),
                      .beginsWith = strings(object, u"beginsWith"_s),
                      .beginsNotWith = strings(object, u"beginsNotWith"_s),
                      .endsWith = strings(object, u"endsWith"_s)};
        if (object.contains(u"maxLength"_s)) {
            rule.maxLength = object[u"maxLength"_s].toInt(-1);
            if (rule.maxLength < 0)
                complain(RulePackText::tr("“maxLength” has to be a whole number"));
        }
        if (object.contains(u"matches"_s)) {
            rule.matches.emplace(string(object, u"matches"_s));
            if (!rule.matches->isValid())
                complain(RulePackText::tr("“matches” is no regular expression"));
        }
        return rule;
    }

    QString m_place;
    QString m_complaint;
};

// What forms after 3.10 take for certain: addresses that begin with https://.
constexpr const char *builtInPacks[] = {R"json({
  "id": "https",
  "title": "Secure addresses, as forms after 3.10 take them",
  "rules": [
    {
      "id": "address-insecure",
      "severity": "hint",
      "summary": "An address begins with http://.",
      "explanation": "The {field} begins with http://. Newer forms take https://, too: use it where your server has it.",
      "fields": ["Company_WebSite_URL", "Application_Info_URL", "Application_Order_URL",
                 "Application_Screenshot_URL", "Application_Icon_URL", "Application_XML_File_URL",
                 "Primary_Download_URL", "Secondary_Download_URL",
                 "Additional_Download_URL_1", "Additional_Download_URL_2"],
      "beginsNotWith": ["http://"]
    },
    {
      "id": "address-without-scheme",
      "severity": "warning",
      "summary": "An address, but of a download, does not begin with https:// or http://.",
      "explanation": "The {field} does not begin with https:// or http://, so that no browser can tell what to do with it.",
      "fields": ["Company_WebSite_URL", "Application_Info_URL", "Application_Order_URL",
                 "Application_Screenshot_URL", "Application_Icon_URL", "Application_XML_File_URL"],
      "beginsWith": ["https://", "http://"]
    },
    {
      "id": "download-without-scheme",
      "severity": "warning",
      "summary": "The address of a download does not begin with https://, http:// or ftp://.",
      "explanation": "The {field} does not begin with https://, http:// or ftp://, so that nobody can fetch the file.",
      "fields": ["Primary_Download_URL", "Secondary_Download_URL",
                 "Additional_Download_URL_1", "Additional_Download_URL_2"],
      "beginsWith": ["https://", "http://", "ftp://"]
    }
  ]
})json"};

} // namespace

bool PackRule::passes(const QString &text) const
{
    const auto begins = [&text](const QString &word) { return text.startsWith(word, Qt::CaseInsensitive); };
    const auto ends = [&text](const QString &word) { return text.endsWith(word, Qt::CaseInsensitive); };
    return text.isEmpty() ||
           ((beginsWith.isEmpty() || any(beginsWith, begins)) && !any(beginsNotWith, begins) &&
            (endsWith.isEmpty() || any(endsWith, ends)) && (!maxLength || text.size() <= *maxLength) &&
            (!matches || matches->firstMatch(text)));
}

Result<RulePack> rule_packs::parsed(const QByteArray &json, const QString &name)
{
    QJsonParseError fault;
    const QJsonDocument document = QJsonDocument::fromJson(json, &fault);
    if (!document.isObject())
        return Error{
            Error::Kind::Unintelligible, name,
            RulePackText::tr("it is no rule pack: %1")
                .arg(document.isNull() ? fault.errorString() : RulePackText::tr("it is no JSON object"))};
    PackParser parser;
    RulePack pack = parser.pack(document.object());
    if (!parser.complaint().isEmpty())
        return Error{Error::Kind::Unintelligible, name,
                     RulePackText::tr("it is no rule pack: %1").arg(parser.complaint())};
    return pack;
}

const QList<RulePack> &rule_packs::builtIn()
{
    static const QList<RulePack> packs = [] {
        QList<RulePack> all;
        for (const char *json : builtInPacks)
            all.append(*parsed(json, u"built in"_s));
        return all;
    }();
    return packs;
}

Result<RulePack> rule_packs::load(const QString &name)
{
    static constexpr qint64 largest = 1'048'576;
    const auto pack = std::ranges::find(builtIn(), name, &RulePack::id);
    if (pack != builtIn().end())
        return *pack;
    const auto bytes = atomic_file::read(name, largest);
    return bytes ? parsed(*bytes, name) : bytes.error();
}

} // namespace quillon
