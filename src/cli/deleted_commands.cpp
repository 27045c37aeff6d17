#include "cli/deleted_commands.h"

#include "cli/output.h"
#include "cli/title_session.h"
#include "sites/deleted_titles.h"
#include "store/storage_status.h"

#include <QJsonArray>
#include <QJsonObject>

using namespace Qt::StringLiterals;

namespace quillon::cli {

namespace {

using deleted_items::Item;
using deleted_items::Kind;

QString name(Kind kind)
{
    return kind == Kind::Title ? u"title"_s : u"site"_s;
}

QString timeOf(const Item &item)
{
    return isoTime(item.time);
}

/// A line for each of @p items, or one JSON array of them.
void show(const QList<Item> &items, bool asJson)
{
    QJsonArray array;
    for (const Item &item : items) {
        if (asJson)
            array.append(QJsonObject{{u"name"_s, item.name},
                                     {u"kind"_s, name(item.kind)},
                                     {u"deleted"_s, timeOf(item)},
                                     {u"address"_s, item.address}});
        else
            printColumns({item.name, name(item.kind), timeOf(item), item.address});
    }
    if (asJson)
        print(QJsonDocument(array));
}

/// What came of a change; as JSON, @p items are shown when they were @p changed.
ExitStatus shown(const QList<Item> &items, bool asJson, const Result<> &changed)
{
    if (changed.isDone() && asJson)
        show(items, asJson);
    const ExitStatus status = outcomeOrRefusal(changed);
    return status == Done ? TitleSession::stored() : status; // A site may not be safe yet.
}

/// What was deleted and is called @p name, the newest first; complains when nothing is.
Result<QList<Item>> itemsNamed(const QString &name)
{
    auto items = deleted_items::all();
    if (items)
        items->removeIf([&name](const Item &item) { return item.name != name; });
    if (items && items->isEmpty())
        complain(u"Nothing named %1 is kept."_s.arg(name));
    return items;
}

class Deleted final : public Command
{
public:
    void describe(CLI::App &command) override
    {
        command.description("The deleted titles and own sites that can be brought back, the newest first");
        command.add_flag("--json", m_json, "As a JSON array");
    }

    [[nodiscard]] bool writes() const override { return false; }

    ExitStatus run() override
    {
        const auto items = deleted_items::all();
        if (!items)
            return outcome(items.error());
        show(*items, m_json);
        return Done;
    }

private:
    bool m_json = false;
};

class Undelete final : public Command
{
public:
    void describe(CLI::App &command) override
    {
        command.description("Bring back a deleted title, or else an own site; of several the newest");
        command.add_option("NAME", m_name, "What it was called")->required();
        m_as = command.add_option("--as", m_newName, "What it is to be called");
        command.add_flag("--dry-run", m_dryRun, "Only show what would be brought back");
        command.add_flag("--json", m_json, "As a JSON array");
    }

    [[nodiscard]] bool writes() const override { return !m_dryRun; }

    ExitStatus run() override
    {
        auto items = itemsNamed(text(m_name));
        if (!items || items->isEmpty())
            return items ? Refused : outcome(items.error());
        std::ranges::stable_sort(*items, {}, &Item::kind); // Titles first.
        items->resize(1);
        if (m_dryRun) {
            show(*items, m_json);
            return Done;
        }
        const QString name = *m_as ? text(m_newName) : text(m_name);
        const ExitStatus status = shown(*items, m_json, bringBack(items->first(), name));
        const bool isReleased = failedExtrasLine().isEmpty(); // The journal has told why it is not.
        return status == Done && !isReleased ? FileFailed : status;
    }

private:
    std::string m_name;
    std::string m_newName;
    bool m_dryRun = false;
    bool m_json = false;
    CLI::Option *m_as = nullptr;
};

class Forget final : public Command
{
public:
    void describe(CLI::App &command) override
    {
        command.description("Remove deleted titles and own sites of a name for good, without asking");
        command.add_option("NAME", m_name, "What they were called")->required();
        command.add_flag("--dry-run", m_dryRun, "Only show what would be forgotten");
        command.add_flag("--json", m_json, "As a JSON array");
    }

    [[nodiscard]] bool writes() const override { return !m_dryRun; }

    ExitStatus run() override
    {
        const auto items = itemsNamed(text(m_name));
        if (!items || items->isEmpty())
            return items ? Refused : outcome(items.error());
        if (!m_dryRun)
            return shown(*items, m_json, deleted_items::forget(*items));
        show(*items, m_json);
        return Done;
    }

private:
    std::string m_name;
    bool m_dryRun = false;
    bool m_json = false;
};

} // namespace

std::unique_ptr<Command> deletedCommand()
{
    return std::make_unique<Deleted>();
}

std::unique_ptr<Command> undeleteCommand()
{
    return std::make_unique<Undelete>();
}

std::unique_ptr<Command> forgetCommand()
{
    return std::make_unique<Forget>();
}

} // namespace quillon::cli
