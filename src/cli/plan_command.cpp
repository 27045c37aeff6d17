#include "cli/plan_command.h"

#include "changes/fixes.h"

#include <QJsonArray>
#include <QJsonObject>

using namespace Qt::StringLiterals;

namespace quillon::cli {

namespace {

QJsonObject json(const Change &change)
{
    QJsonObject object{{u"field"_s, padField(change.field).control.toString()},
                       {u"before"_s, change.before},
                       {u"after"_s, change.after}};
    if (const QString fix = fixes::idOf(change); !fix.isEmpty())
        object[u"fix"_s] = fix;
    return object;
}

QJsonObject json(const TitlePlan &title)
{
    QJsonArray changes;
    for (const Change &change : title.changes)
        changes.append(json(change));
    return {{u"name"_s, title.title},
            {u"changes"_s, changes},
            {u"vanishing"_s, errorsAsJson(title.judgement.vanishing)},
            {u"appearing"_s, errorsAsJson(title.judgement.appearing)},
            {u"notes"_s, QJsonArray::fromStringList(title.notes)}};
}

void show(const TitlePlan &title)
{
    for (const Change &change : title.changes) {
        QStringList columns = {title.title, padField(change.field).control.toString(), change.before,
                               change.after};
        if (const QString fix = fixes::idOf(change); !fix.isEmpty())
            columns.append(fix);
        printColumns(columns);
    }
    for (const auto &[field, message] : title.judgement.vanishing)
        printColumns({title.title, u"- "_s + field, message});
    for (const auto &[field, message] : title.judgement.appearing)
        printColumns({title.title, u"+ "_s + field, message});
    for (const QString &note : title.notes)
        complain(u"%1: %2"_s.arg(title.title, note));
}

/// @p set is the number under which the plan was applied; 0 where it was not.
void show(const ChangePlan &plan, qint64 set, bool asJson)
{
    QJsonArray titles;
    for (const TitlePlan &title : plan.titles) {
        if (asJson)
            titles.append(json(title));
        else
            show(title);
    }
    if (asJson)
        print(QJsonDocument(QJsonObject{
            {u"label"_s, plan.label}, {u"set"_s, set == 0 ? QJsonValue() : set}, {u"titles"_s, titles}}));
}

ExitStatus worseOf(ExitStatus one, const Result<> &result)
{
    const ExitStatus other = outcome(result);
    return one == Done ? other : one;
}

} // namespace

void PlanCommand::addOutputOptions(CLI::App &command)
{
    command.add_flag("--dry-run", m_dryRun, "Only tell what would change; nothing is written");
    command.add_flag("--json", m_json, "As a JSON object");
}

std::optional<QStringList> PlanCommand::existing(const std::vector<std::string> &names)
{
    QStringList titles;
    for (const std::string &name : names) {
        if (!titleExists(text(name)))
            return std::nullopt;
        if (!titles.contains(text(name)))
            titles.append(text(name));
    }
    return titles;
}

ExitStatus PlanCommand::run()
{
    const Planned planned = plan();
    if (planned.status != Done)
        return planned.status;
    ExitStatus status = Done;
    for (const Error &failure : planned.plan.failures)
        status = worseOf(status, failure);
    if (m_dryRun) {
        show(planned.plan, 0, m_json);
        const QStringList obstacles = change_plans::obstacles(planned.plan);
        if (obstacles.isEmpty())
            return status;
        complain(obstacles.join(u"; "_s));
        return Refused;
    }
    const auto applied = change_plans::apply(planned.plan);
    if (!applied)
        return outcomeOrRefusal(applied.error());
    show(planned.plan, applied->set, m_json);
    for (const change_plans::TitleOutcome &title : applied->titles)
        status = worseOf(status, title.stored);
    return status;
}

} // namespace quillon::cli
