#include "cli/check_report.h"

#include <QJsonArray>
#include <QJsonObject>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace quillon::cli {

namespace {

/// The recorded message; of advice, what is advised.
const QString &messageOf(const Finding &finding)
{
    return finding.recorded.isEmpty() ? finding.explanation : finding.recorded;
}

void reportAsText(const CheckResults &results)
{
    for (const Checked &checked : results.all) {
        for (const LocatedFinding &each : checked.findings) {
            printColumns({lineOf(checked, each)});
            if (results.explains && !each.finding.recorded.isEmpty())
                printColumns({u"    "_s + each.finding.explanation});
        }
    }
}

QJsonObject json(const LocatedFinding &each)
{
    const Finding &finding = each.finding;
    const PadField &field = padField(finding.field);
    QJsonObject object{{u"id"_s, finding.id.toString()},
                       {u"severity"_s, findings::name(finding.severity).toString()},
                       {u"field"_s, field.control.toString()},
                       {u"element"_s, field.element.toString()},
                       {u"explanation"_s, finding.explanation}};
    if (!finding.recorded.isEmpty())
        object[u"message"_s] = finding.recorded;
    if (each.position) {
        object[u"line"_s] = each.position->line;
        object[u"column"_s] = each.position->column;
    }
    return object;
}

QJsonObject json(const Checked &checked)
{
    QJsonObject object{{checked.isTitle ? u"title"_s : u"file"_s, checked.target}};
    if (!checked.failure.isEmpty()) {
        object[u"failure"_s] = checked.failure;
        return object;
    }
    QJsonArray findings;
    for (const LocatedFinding &each : checked.findings)
        findings.append(json(each));
    object[u"valid"_s] = checked.errors.empty();
    object[u"findings"_s] = findings;
    return object;
}

void reportAsJson(const CheckResults &results)
{
    QJsonArray array;
    for (const Checked &checked : results.all)
        array.append(json(checked));
    print(QJsonDocument(array));
}

/// @p text as a workflow command takes it after its "::".
QString commandData(QString text)
{
    return text.replace(u'%', u"%25"_s).replace(u'\r', u"%0D"_s).replace(u'\n', u"%0A"_s);
}

/// @p text as the value of a workflow command's property.
QString commandProperty(const QString &text)
{
    return commandData(text).replace(u':', u"%3A"_s).replace(u',', u"%2C"_s);
}

void reportToGitHub(const CheckResults &results)
{
    static constexpr std::array<QStringView, 3> commands = {u"error", u"warning", u"notice"};
    for (const Checked &checked : results.all) {
        const QString file = u" file="_s + commandProperty(checked.target);
        if (!checked.failure.isEmpty())
            printColumns({u"::error"_s + file + u"::"_s + commandData(checked.failure)});
        for (const auto &[finding, position] : checked.findings) {
            QString line = u"::"_s + commands[size_t(finding.severity)] + file;
            if (position)
                line += u",line=%1,col=%2"_s.arg(position->line).arg(position->column);
            line += u",title="_s +
                    commandProperty(finding.recorded.isEmpty() ? finding.id.toString() : finding.recorded);
            printColumns({line + u"::"_s + commandData(finding.explanation)});
        }
    }
}

constexpr CheckFormat formats[] = {{"text", reportAsText},
                                   {"json", reportAsJson},
                                   {"sarif", reportAsSarif},
                                   {"junit", reportAsJUnit},
                                   {"github", reportToGitHub}};

} // namespace

std::span<const CheckFormat> checkFormats()
{
    return formats;
}

CheckReport checkReport(const std::string &name)
{
    return std::ranges::find(formats, name, &CheckFormat::name)->report;
}

QString lineOf(const Checked &checked, const LocatedFinding &each)
{
    const QString place =
        each.position ? u":%1:%2"_s.arg(each.position->line).arg(each.position->column) : QString();
    const Finding &finding = each.finding;
    return checked.target + place + u": "_s + findings::name(finding.severity) + u": "_s +
           messageOf(finding) + u" ["_s + finding.id + u']';
}

} // namespace quillon::cli
