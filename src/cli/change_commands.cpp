#include "cli/change_commands.h"

#include "changes/bulk_change.h"
#include "changes/fixes.h"
#include "changes/release_plan.h"
#include "changes/taking_back.h"
#include "cli/plan_command.h"
#include "overview/title_list.h"
#include "platform/atomic_file.h"
#include "platform/text_decoding.h"

#include <QJsonArray>
#include <QJsonObject>

using namespace Qt::StringLiterals;

namespace quillon::cli {

namespace {

class FixTitles final : public PlanCommand
{
public:
    void describe(CLI::App &command) override
    {
        command.description(
            "Mend what can be mended in titles without guessing: title, field, before, after, fix; then the "
            "errors that go and come");
        command.footer(footer());
        command.add_option("TITLE", m_titles, "The titles")->required();
        command.add_option("--only", m_only, "Only the fix of this id; may be given several times")
            ->allow_extra_args(false);
        addOutputOptions(command);
    }

private:
    static std::string footer()
    {
        QString text = u"Fixes:"_s;
        for (const fixes::FixRule &rule : fixes::rules())
            text += u"\n  %1: %2"_s.arg(rule.id, rule.summary);
        return text.toStdString();
    }

    [[nodiscard]] Planned plan() const override
    {
        QStringList only;
        for (const std::string &id : m_only) {
            only.append(text(id));
            if (!fixes::exists(only.last())) {
                complain(u"There is no fix %1."_s.arg(only.last()));
                return {.status = WrongUsage};
            }
        }
        const auto titles = existing(m_titles);
        return titles ? Planned{fixes::plan(*titles, only)} : Planned{.status = Refused};
    }

    std::vector<std::string> m_titles;
    std::vector<std::string> m_only;
};

class ReleaseTitles final : public PlanCommand
{
public:
    void describe(CLI::App &command) override
    {
        command.description(
            "Make a new release of titles: title, field, before, after; then the errors that go and come");
        command.add_option("TITLE", m_titles, "The titles")->required();
        command.add_option("--version", m_version, "The new version")->required();
        command.add_option("--date", m_date, "Its date as YYYY-MM-DD; without it today");
        command.add_option("--file", m_file, "The file that is released; the sizes become its size");
        command.add_option("--changes", m_changes,
                           "What is new, or \"@\" and the name of a file that says so");
        command.add_option("--status", m_status, "The release status");
        command.add_flag("--urls", m_urls, "Replace the old version in web addresses, too");
        addOutputOptions(command);
    }

private:
    /// What --changes says, or the file that it names.
    [[nodiscard]] Result<QString> whatIsNew() const
    {
        const QString changes = text(m_changes);
        if (!changes.startsWith(u'@'))
            return changes;
        const auto bytes = atomic_file::read(changes.sliced(1), mostChanges);
        if (!bytes)
            return bytes.error();
        QString read = decodedXmlText(*bytes);
        while (read.endsWith(u'\n') || read.endsWith(u'\r'))
            read.chop(1);
        return read;
    }

    [[nodiscard]] Result<release_plan::Release> release() const
    {
        release_plan::Release release{.version = text(m_version), .replacesVersionInAddresses = m_urls};
        if (!m_date.empty())
            release.date = QDate::fromString(text(m_date), Qt::ISODate);
        if (!m_status.empty())
            release.status = text(m_status);
        if (const Result<> judged = release_plan::judge(release); !judged)
            return judged.error();
        if (!m_file.empty()) {
            const auto file = release_plan::fileAt(text(m_file));
            if (!file)
                return file.error();
            release.file = *file;
        }
        if (!m_changes.empty()) {
            const auto changes = whatIsNew();
            if (!changes)
                return changes.error();
            release.changes = *changes;
        }
        return release;
    }

    [[nodiscard]] Planned plan() const override
    {
        const auto wanted = release();
        if (wanted.isError(Error::Kind::Refused)) {
            complain(wanted.error().reason);
            return {.status = WrongUsage};
        }
        if (!wanted)
            return {.status = outcome(wanted.error())};
        const auto titles = existing(m_titles);
        return titles ? Planned{release_plan::plan(*wanted, *titles)} : Planned{.status = Refused};
    }

    static constexpr qint64 mostChanges = 1'048'576; // Bytes.

    std::vector<std::string> m_titles;
    std::string m_version;
    std::string m_date;
    std::string m_file;
    std::string m_changes;
    std::string m_status;
    bool m_urls = false;
};

class ChangeTitles final : public PlanCommand
{
public:
    void describe(CLI::App &command) override
    {
        command.description(
            "Set fields in all titles whose fields hold certain values: title, field, before, after; then "
            "the errors that go and come");
        command
            .add_option(
                "--where", m_where,
                "FIELD=VALUE: only titles where the field holds just that; may be given several times")
            ->allow_extra_args(false)
            ->required();
        command
            .add_option("FIELD=VALUE", m_arguments,
                        "What to set, as in \"set\", and behind it the titles; without any, all titles")
            ->required();
        addOutputOptions(command);
    }

private:
    /// The assignments that @p arguments begin with.
    static Result<QList<FieldAssignment>> assignments(const std::vector<std::string> &arguments)
    {
        QList<FieldAssignment> all;
        for (const std::string &argument : arguments) {
            const auto assignment = field_assignments::parsed(text(argument));
            if (!assignment)
                return assignment.error();
            all.append(*assignment);
        }
        return all;
    }

    /// An argument that is no assignment is a title, and so are those behind it.
    [[nodiscard]] std::vector<std::string>::const_iterator firstTitle() const
    {
        return std::find_if(m_arguments.begin(), m_arguments.end(), [](const std::string &argument) {
            const QString name = text(argument).section(u'=', 0, 0);
            return name == text(argument) || !fieldNamed(name);
        });
    }

    static std::optional<QStringList> allTitles()
    {
        const auto list = loadTitles(OldLayout::Leave);
        if (!list) {
            (void)outcome(list.error());
            return std::nullopt;
        }
        QStringList names;
        for (const Title &title : list->titles) {
            if (!title.name.contains(u'/')) // One in another folder can be looked at only.
                names.append(title.name);
        }
        return names;
    }

    [[nodiscard]] Planned plan() const override
    {
        const auto first = firstTitle();
        const auto where = assignments(m_where);
        const auto set = assignments({m_arguments.begin(), first});
        if (!where || !set || set->isEmpty()) {
            complain(!where ? where.error().reason
                     : !set
                         ? set.error().reason
                         : u"%1 is no FIELD=VALUE of a field that exists."_s.arg(text(m_arguments.front())));
            return {.status = WrongUsage};
        }
        const bool isForAll = first == m_arguments.end();
        const auto titles = isForAll ? allTitles() : existing({first, m_arguments.end()});
        if (!titles)
            return {.status = isForAll ? FileFailed : Refused};
        return {bulk_change::plan({.where = *where, .set = *set}, *titles)};
    }

    std::vector<std::string> m_where;
    std::vector<std::string> m_arguments;
};

class ListChangeSets final : public Command
{
public:
    void describe(CLI::App &command) override
    {
        command.description(
            "What was changed in one go, newest first: number, time, origin, label, how many titles, "
            "and in how many of them it is taken back");
        command.add_flag("--json", m_json, "As a JSON array");
    }

    [[nodiscard]] bool writes() const override { return false; }

    ExitStatus run() override
    {
        const auto sets = taking_back::sets();
        if (!sets)
            return outcome(sets.error());
        QJsonArray array;
        for (const set_log::SetHead &set : *sets) {
            if (m_json)
                array.append(json(set));
            else
                printColumns({QString::number(set.id), isoTime(set.time), set.origin, set.label,
                              QString::number(set.titles), QString::number(set.takenBack)});
        }
        if (m_json)
            print(QJsonDocument(array));
        return Done;
    }

private:
    static QJsonObject json(const set_log::SetHead &set)
    {
        QJsonObject object{{u"set"_s, set.id},
                           {u"time"_s, isoTime(set.time)},
                           {u"origin"_s, set.origin},
                           {u"label"_s, set.label},
                           {u"titles"_s, set.titles},
                           {u"changes"_s, set.rows},
                           {u"takenBack"_s, set.takenBack},
                           {u"unfinished"_s, set.isUnfinished}};
        if (set.of)
            object[u"of"_s] = *set.of;
        return object;
    }

    bool m_json = false;
};

class UndoSet final : public PlanCommand
{
public:
    void describe(CLI::App &command) override
    {
        command.description(
            "Take back what was changed in one go, in all its titles, unless a field holds something else by "
            "now; of an undo, do it again");
        command.add_option("ID", m_id, "The number that \"changesets\" shows; without it the latest");
        addOutputOptions(command);
    }

private:
    [[nodiscard]] Planned plan() const override
    {
        const auto planned = taking_back::plan(m_id);
        return planned ? Planned{*planned} : Planned{.status = outcomeOrRefusal(planned.error())};
    }

    std::optional<qint64> m_id;
};

} // namespace

std::unique_ptr<Command> fixCommand()
{
    return std::make_unique<FixTitles>();
}

std::unique_ptr<Command> releaseCommand()
{
    return std::make_unique<ReleaseTitles>();
}

std::unique_ptr<Command> changeCommand()
{
    return std::make_unique<ChangeTitles>();
}

std::unique_ptr<Command> changeSetsCommand()
{
    return std::make_unique<ListChangeSets>();
}

std::unique_ptr<Command> undoCommand()
{
    return std::make_unique<UndoSet>();
}

} // namespace quillon::cli
