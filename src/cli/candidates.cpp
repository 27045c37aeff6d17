#include "cli/candidates.h"

#include "changes/fixes.h"
#include "cli/command.h"
#include "cli/title_session.h"
#include "journal/deleted_items.h"
#include "overview/title_list.h"
#include "pad/vocabularies.h"
#include "sites/site_editing.h"
#include "store/process_state.h"
#include "store/storage_status.h"
#include "store/title_folder.h"
#include "submission/field_copy.h"

#include <QDir>

#include <algorithm>
#include <optional>

using namespace Qt::StringLiterals;

namespace quillon::cli {

namespace {

/// What there is; that it could not be read is kept in mwqnFailedWrites.
template<typename List>
List readable(const Result<List> &list)
{
    if (!list)
        reportFailure(list.error());
    return list.valueOr({});
}

QStringList titleNames(const QString &)
{
    QStringList names;
    for (const Title &title : readable(loadTitles(OldLayout::Leave)).titles) {
        if (title_folder::isUsableName(title.name))
            names.append(title.name);
    }
    return names;
}

QStringList fieldNames(const QString &)
{
    QStringList names;
    for (const PadField &field : padFields)
        names << field.control.toString() << field.element.toString();
    return names;
}

/// FIELD= for each field; once that is typed, with each value that the field can take.
QStringList assignments(const QString &typed)
{
    const qsizetype sign = typed.indexOf(u'=');
    QStringList all;
    if (sign < 0) {
        for (const QString &name : fieldNames(typed))
            all.append(name + u'=');
        return all;
    }
    const auto field = fieldNamed(QStringView(typed).first(sign));
    const bool isList = field && padField(*field).kind == FieldKind::CheckList;
    const QString before = typed.first(1 + (isList ? qMax(sign, typed.lastIndexOf(u',')) : sign));
    for (const QString &value : field ? vocabulary::of(*field) : QStringList())
        all.append(before + value);
    return all;
}

QStringList assignmentsAndTitles(const QString &typed)
{
    return assignments(typed) + titleNames(typed);
}

QStringList fixIds(const QString &)
{
    QStringList ids;
    for (const fixes::FixRule &rule : fixes::rules())
        ids.append(rule.id.toString());
    return ids;
}

QStringList releaseStatuses(const QString &)
{
    return vocabulary::releaseStatuses();
}

QStringList siteNames(const QString &)
{
    return readable(site_editing::storedCatalogue()).sites;
}

QStringList removedSites(const QString &)
{
    return readable(site_editing::storedCatalogue()).ignored;
}

QStringList deletedNames(const QString &)
{
    QStringList names;
    for (const deleted_items::Item &item : readable(deleted_items::all(deleted_items::Old::Leave)))
        names.append(item.name);
    return names;
}

QStringList buttonActions(const QString &)
{
    QStringList actions;
    for (const FieldCopyButton &button : fieldCopyButtons)
        actions.append(button.action.toString());
    return actions;
}

/// What can stand for an argument, by its name in the help, or by what the help calls its value; one that
/// means something of its own in a command has the command before it.
struct Argument
{
    QStringView name;
    QStringList (*values)(const QString &typed);
    bool takesFiles = false;
};

constexpr Argument argumentTable[] = {
    {u"sites --for", titleNames},
    {u"fix --only", fixIds},
    {u"release --file", nullptr, true},
    {u"release --status", releaseStatuses},
    {u"change --where", assignments},
    {u"change FIELD=VALUE", assignmentsAndTitles},
    {u"check --pack", nullptr, true},
    {u"sites edit NAME", siteNames},
    {u"sites remove NAME", siteNames},
    {u"sites restore NAME", removedSites},
    {u"undelete NAME", deletedNames},
    {u"forget NAME", deletedNames},
    {u"TITLE", titleNames},
    {u"OLD", titleNames},
    {u"TITLE-or-FILE", titleNames, true},
    {u"FIELD", fieldNames},
    {u"FIELD=VALUE", assignments},
    {u"SITE", siteNames},
    {u"BUTTON", buttonActions},
    {u"FILE", nullptr, true},
    {u"FOLDER", nullptr, true},
    {u"--home", nullptr, true},
};

const Argument *argumentNamed(const QString &name)
{
    const auto *found = std::ranges::find(argumentTable, QStringView(name), &Argument::name);
    return found == std::end(argumentTable) ? nullptr : found;
}

/// Goes through the words as the parser does, but for what is wrong with them.
class Walk
{
public:
    explicit Walk(const CLI::App &program) : m_command(&program) {}

    void pass(const QString &word)
    {
        if (m_option) {
            passValue(word);
        } else if (!m_isPastOptions && word == u"--") {
            m_isPastOptions = true;
        } else if (!m_isPastOptions && word.startsWith(u'-')) {
            m_option = optionOf(word);
            if (const auto value = valueIn(word); m_option && value)
                passValue(*value);
        } else if (const CLI::App *command = m_positionals == 0 ? subcommand(word) : nullptr) {
            m_command = command;
            m_path += word + u' ';
        } else {
            ++m_positionals;
        }
    }

    [[nodiscard]] Candidates at(const QString &typed) const
    {
        if (m_option)
            return valuesOf(*m_option, typed);
        if (typed.startsWith(u'-') && !m_isPastOptions)
            return atOption(typed);
        Candidates found;
        if (const CLI::Option *positional = currentPositional())
            found = valuesOf(*positional, typed);
        if (m_positionals == 0)
            found.words += subcommandNames();
        return found;
    }

private:
    void passValue(const QString &value)
    {
        if (std::exchange(m_option, nullptr)->check_name("--home"))
            setDataFolder(QDir(value).absolutePath());
    }

    /// The name of an option; behind "--name=" its values.
    [[nodiscard]] Candidates atOption(const QString &typed) const
    {
        const auto value = valueIn(typed);
        if (!value)
            return {optionNames()};
        const CLI::Option *option = optionOf(typed);
        Candidates found = option ? valuesOf(*option, *value) : Candidates();
        for (QString &word : found.words)
            word.prepend(typed.chopped(value->size()));
        return found;
    }

    /// What stands behind the "=" in "--name=value".
    static std::optional<QString> valueIn(const QString &word)
    {
        const qsizetype sign = word.indexOf(u'=');
        return sign < 0 ? std::nullopt : std::optional(word.sliced(sign + 1));
    }

    /// The option that @p word names, with or without its value; none unless it takes one.
    [[nodiscard]] const CLI::Option *optionOf(const QString &word) const
    {
        const QString name = word.section(u'=', 0, 0);
        const CLI::Option *option = m_command->get_option_no_throw(name.toStdString());
        return option && option->get_items_expected_max() > 0 ? option : nullptr;
    }

    [[nodiscard]] QStringList subcommandNames() const
    {
        QStringList names;
        for (const CLI::App *command : m_command->get_subcommands([](const CLI::App *) { return true; }))
            names.append(text(command->get_name()));
        return names;
    }

    [[nodiscard]] const CLI::App *subcommand(const QString &word) const
    {
        const auto found = m_command->get_subcommands(
            [&word](const CLI::App *command) { return command->check_name(word.toStdString()); });
        return found.empty() ? nullptr : found.front();
    }

    [[nodiscard]] QStringList optionNames() const
    {
        QStringList names;
        for (const CLI::Option *option : m_command->get_options()) {
            for (const std::string &name : option->get_lnames())
                names.append(u"--"_s + text(name));
        }
        return names;
    }

    /// The argument that stands here; the last one may be any number of words.
    [[nodiscard]] const CLI::Option *currentPositional() const
    {
        const auto all =
            m_command->get_options([](const CLI::Option *option) { return option->get_positional(); });
        if (m_positionals < all.size())
            return all[m_positionals];
        return !all.empty() && all.back()->get_items_expected_max() > 1 ? all.back() : nullptr;
    }

    [[nodiscard]] Candidates valuesOf(const CLI::Option &option, const QString &typed) const
    {
        const QString name = text(option.get_name(option.get_positional()));
        const Argument *argument = argumentNamed(m_path + name);
        if (!argument)
            argument = argumentNamed(name);
        if (!argument)
            argument = argumentNamed(text(option.get_type_name()));
        if (!argument)
            return {choicesOf(option)};
        return {argument->values ? argument->values(typed) : QStringList(), argument->takesFiles};
    }

    /// Those that the parser itself checks: its description of them is "{a,b}".
    static QStringList choicesOf(const CLI::Option &option)
    {
        const QString type = text(option.get_type_name());
        const qsizetype open = type.indexOf(u'{');
        const qsizetype close = type.indexOf(u'}', open);
        return open < 0 || close < 0 ? QStringList() : type.sliced(open + 1, close - open - 1).split(u',');
    }

    const CLI::App *m_command;
    QString m_path;                        ///< The names of the commands so far, each with a blank behind it.
    const CLI::Option *m_option = nullptr; ///< Which waits for its value.
    size_t m_positionals = 0;
    bool m_isPastOptions = false;
};

} // namespace

Candidates candidates(const CLI::App &program, const QStringList &words)
{
    Walk walk(program);
    for (const QString &word : words.first(words.size() - 1))
        walk.pass(word);
    const QString &typed = words.last();
    Candidates found = walk.at(typed);
    found.words.removeIf([&typed](const QString &word) { return !word.startsWith(typed); });
    return found;
}

} // namespace quillon::cli
