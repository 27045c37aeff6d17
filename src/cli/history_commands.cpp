#include "cli/history_commands.h"

#include "changes/restoring.h"
#include "cli/title_session.h"
#include "journal/history.h"
#include "journal/journal.h"
#include "pad/pad_reader.h"
#include "platform/atomic_file.h"
#include "store/title_folder.h"

#include <QJsonArray>
#include <QJsonObject>

using namespace Qt::StringLiterals;

namespace quillon::cli {

namespace {

/// None, with a complaint, for what is no field's name.
std::optional<FieldId> knownField(const QString &name)
{
    const auto field = fieldNamed(name);
    if (!field)
        complain(u"There is no field named %1."_s.arg(name));
    return field;
}

QJsonObject json(const history::Row &row)
{
    QJsonObject object{{u"row"_s, row.number},    {u"time"_s, isoTime(row.time)}, {u"field"_s, row.field},
                       {u"origin"_s, row.origin}, {u"before"_s, row.before},      {u"after"_s, row.after}};
    if (row.set) {
        object[u"set"_s] = *row.set;
        object[u"label"_s] = row.label;
    }
    return object;
}

class ShowHistory final : public Command
{
public:
    void describe(CLI::App &command) override
    {
        command.description(
            "Earlier texts of a title, newest first: row, time, field, origin, before, after");
        command.add_option("TITLE", m_title, "The title")->required();
        command.add_option("FIELD", m_field, "Only this one: the name of a control or of a PAD element");
        command.add_flag("--json", m_json, "As a JSON array");
    }

    [[nodiscard]] bool writes() const override { return false; }

    ExitStatus run() override
    {
        QString field;
        if (!m_field.empty()) {
            const auto known = knownField(text(m_field));
            if (!known)
                return WrongUsage;
            field = padField(*known).control.toString();
        }
        if (!titleExists(text(m_title)))
            return Refused;
        const auto rows = Journal::ofDataFolder().find(
            [&](Database &database) { return history::rows(database, text(m_title), field); });
        if (!rows)
            return outcome(rows.error());
        show(*rows);
        return Done;
    }

private:
    void show(const QList<history::Row> &rows) const
    {
        QJsonArray array;
        for (const history::Row &row : rows) {
            if (m_json)
                array.append(json(row));
            else
                printColumns({QString::number(row.number), isoTime(row.time), row.field, row.origin,
                              row.before, row.after});
        }
        if (m_json)
            print(QJsonDocument(array));
    }

    std::string m_title;
    std::string m_field;
    bool m_json = false;
};

/// What a set changes, and what that does to the errors.
void showSet(const ChangeSet &set, const Judgement &judgement, bool asJson)
{
    QJsonArray changes;
    for (const Change &change : set.changes) {
        const QString field = padField(change.field).control.toString();
        if (asJson)
            changes.append(
                QJsonObject{{u"field"_s, field}, {u"before"_s, change.before}, {u"after"_s, change.after}});
        else
            printColumns({field, change.before, change.after});
    }
    if (asJson) {
        print(QJsonDocument(QJsonObject{{u"changes"_s, changes},
                                        {u"vanishing"_s, errorsAsJson(judgement.vanishing)},
                                        {u"appearing"_s, errorsAsJson(judgement.appearing)}}));
        return;
    }
    for (const auto &[field, message] : judgement.vanishing)
        printColumns({u"- "_s + field, message});
    for (const auto &[field, message] : judgement.appearing)
        printColumns({u"+ "_s + field, message});
}

/// restore-text and restore-title, which differ in a field that is named.
class RestoreRow final : public Command
{
public:
    explicit RestoreRow(bool ofField) : m_isOfField(ofField) {}

    void describe(CLI::App &command) override
    {
        command.description(m_isOfField ? "Bring back an earlier text of a field"
                                        : "Bring back all fields as they were at a row of the history");
        command.add_option("TITLE", m_title, "The title")->required();
        if (m_isOfField)
            command.add_option("FIELD", m_field, "The name of a control or of a PAD element")->required();
        command.add_option("--to", m_row, "The row of its history; 0 is the beginning")->required();
        command.add_flag("--dry-run", m_dryRun, "Only tell what would change; nothing is written");
        command.add_flag("--json", m_json, "As a JSON object");
    }

    [[nodiscard]] bool writes() const override { return !m_dryRun; }

    ExitStatus run() override
    {
        std::optional<FieldId> field;
        if (m_isOfField && !(field = knownField(text(m_field))))
            return WrongUsage;
        if (m_dryRun)
            return tryOut(field);
        TitleSession session;
        if (const ExitStatus opened = session.open(text(m_title)); opened != Done)
            return opened;
        const auto set = planned(session.editor().form(), field);
        if (!set)
            return status(set.error());
        const Judgement judgement = change_sets::judge(session.editor().form(), set->changes);
        if (const auto applied = session.history().apply(*set); !applied)
            return status(applied.error());
        showSet(*set, judgement, m_json);
        return TitleSession::stored();
    }

private:
    [[nodiscard]] Result<ChangeSet> planned(const PadForm &form, const std::optional<FieldId> &field) const
    {
        return restoring::plan(text(m_title), form, m_row, field);
    }

    static ExitStatus status(const Error &error)
    {
        if (error.kind != Error::Kind::Refused)
            return outcome(error);
        complain(u"%1: %2."_s.arg(error.path, error.reason));
        return Refused;
    }

    /// On a form of its own, since checking the title would store it.
    [[nodiscard]] ExitStatus tryOut(const std::optional<FieldId> &field) const
    {
        const auto folder = title_folder::path(text(m_title));
        if (!titleExists(text(m_title)) || !folder)
            return Refused;
        const auto stored = atomic_file::read(*folder + u'/' + title_folder::padFile);
        if (!stored)
            return outcome(stored.error());
        PadForm form;
        loadPADData(*stored, form);
        const auto set = planned(form, field);
        if (!set)
            return status(set.error());
        showSet(*set, change_sets::judge(form, set->changes), m_json);
        return Done;
    }

    const bool m_isOfField;
    std::string m_title;
    std::string m_field;
    qint64 m_row = 0;
    bool m_dryRun = false;
    bool m_json = false;
};

} // namespace

std::unique_ptr<Command> historyCommand()
{
    return std::make_unique<ShowHistory>();
}

std::unique_ptr<Command> restoreTextCommand()
{
    return std::make_unique<RestoreRow>(true);
}

std::unique_ptr<Command> restoreTitleCommand()
{
    return std::make_unique<RestoreRow>(false);
}

} // namespace quillon::cli
