#include "cli/check_report.h"
#include "platform/application_info.h"

#include <QDir>
#include <QJsonArray>
#include <QJsonObject>
#include <QUrl>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace quillon::cli {

namespace {

QJsonObject sarifText(const QString &text)
{
    return {{u"text"_s, text}};
}

QString level(Severity severity)
{
    return severity == Severity::Hint ? u"note"_s : findings::name(severity).toString();
}

QJsonArray sarifRules(const QList<FindingRule> &asked)
{
    QJsonArray rules;
    for (const FindingRule &rule : asked)
        rules.append(
            QJsonObject{{u"id"_s, rule.id.toString()},
                        {u"shortDescription"_s, sarifText(rule.summary.toString())},
                        {u"defaultConfiguration"_s, QJsonObject{{u"level"_s, level(rule.severity)}}}});
    return rules;
}

/// A relative address of a relative path, so that whoever shows the report finds the file in his own
/// checkout.
QString address(const Checked &checked)
{
    if (checked.target == u"-")
        return u"stdin"_s;
    if (QDir::isAbsolutePath(checked.target))
        return QUrl::fromLocalFile(checked.target).toString(QUrl::FullyEncoded);
    return QString::fromLatin1(QUrl::toPercentEncoding(checked.target, "/"));
}

/// A file's place is a physical location, a title is known by its name only.
QJsonArray locations(const Checked &checked, const std::optional<PadDocument::Position> &position,
                     const QString &element)
{
    QJsonArray logical;
    if (checked.isTitle)
        logical.append(QJsonObject{{u"name"_s, checked.target}, {u"kind"_s, u"module"_s}});
    if (!element.isEmpty())
        logical.append(QJsonObject{{u"name"_s, element}, {u"kind"_s, u"element"_s}});
    QJsonObject location;
    if (!logical.isEmpty())
        location[u"logicalLocations"_s] = logical;
    if (!checked.isTitle) {
        QJsonObject physical{{u"artifactLocation"_s, QJsonObject{{u"uri"_s, address(checked)}}}};
        if (position)
            physical[u"region"_s] =
                QJsonObject{{u"startLine"_s, position->line}, {u"startColumn"_s, position->column}};
        location[u"physicalLocation"_s] = physical;
    }
    return {location};
}

QJsonObject result(const Checked &checked, const LocatedFinding &each, const QList<FindingRule> &rules)
{
    const auto rule = std::ranges::find(rules, each.finding.id, &FindingRule::id);
    const auto &[finding, position] = each;
    QJsonObject result{
        {u"ruleId"_s, finding.id.toString()},
        {u"ruleIndex"_s, qint64(rule - rules.begin())},
        {u"level"_s, level(finding.severity)},
        {u"message"_s, sarifText(finding.explanation)},
        {u"locations"_s, locations(checked, position, padField(finding.field).element.toString())}};
    if (!finding.recorded.isEmpty())
        result[u"properties"_s] = QJsonObject{{u"recorded"_s, finding.recorded}};
    return result;
}

} // namespace

void reportAsSarif(const CheckResults &told)
{
    QJsonArray results;
    QJsonArray failures;
    for (const Checked &checked : told.all) {
        for (const LocatedFinding &each : checked.findings)
            results.append(result(checked, each, told.rules));
        if (!checked.failure.isEmpty())
            failures.append(QJsonObject{{u"level"_s, u"error"_s},
                                        {u"message"_s, sarifText(checked.failure)},
                                        {u"locations"_s, locations(checked, {}, {})}});
    }
    const QJsonObject driver{{u"name"_s, u"Quillon"_s},
                             {u"version"_s, application_info::version},
                             {u"informationUri"_s, application_info::webPage},
                             {u"rules"_s, sarifRules(told.rules)}};
    const QJsonObject invocation{{u"executionSuccessful"_s, failures.isEmpty()},
                                 {u"toolExecutionNotifications"_s, failures}};
    const QJsonObject run{{u"tool"_s, QJsonObject{{u"driver"_s, driver}}},
                          {u"columnKind"_s, u"utf16CodeUnits"_s},
                          {u"invocations"_s, QJsonArray{invocation}},
                          {u"results"_s, results}};
    print(QJsonDocument(QJsonObject{{u"$schema"_s, u"https://json.schemastore.org/sarif-2.1.0.json"_s},
                                    {u"version"_s, u"2.1.0"_s},
                                    {u"runs"_s, QJsonArray{run}}}));
}

} // namespace quillon::cli
