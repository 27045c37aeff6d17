#include "cli/set_command.h"

#include "cli/title_session.h"
#include "pad/vocabularies.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace quillon::cli {

namespace {

/// One FIELD=VALUE of the command line.
struct Assignment
{
    FieldId field;
    QString value;
};

QStringList listEntries(const QString &value)
{
    return value.isEmpty() ? QStringList() : value.split(u',');
}

/// Whether the field can take the value; whatever is typed into a text can be.
bool isPossible(const Assignment &assignment)
{
    const QStringList &vocabulary = vocabulary::of(assignment.field);
    switch (padField(assignment.field).kind) {
    case FieldKind::Text:
    case FieldKind::MultiLine:
        return true;
    case FieldKind::PopUp:
        return assignment.value.isEmpty() || vocabulary.contains(assignment.value);
    case FieldKind::CheckBox:
        return assignment.value == u"Y" || assignment.value == u"N";
    case FieldKind::CheckList: {
        const QStringList entries = listEntries(assignment.value);
        return std::all_of(entries.begin(), entries.end(),
                           [&](const QString &entry) { return vocabulary.contains(entry); });
    }
    case FieldKind::Computed:
        break;
    }
    return false;
}

/// Does what the author would: changes the control and leaves it.
void enter(Editor &editor, const Assignment &assignment, bool leave)
{
    const FieldId field = assignment.field;
    switch (padField(field).kind) {
    case FieldKind::Text:
        editor.typed(field, assignment.value);
        if (leave)
            editor.controlTextDidEndEditing(field);
        return;
    case FieldKind::MultiLine:
        return editor.typed(field, assignment.value);
    case FieldKind::PopUp:
    case FieldKind::CheckBox:
    case FieldKind::CheckList:
        editor.form().setValue(field, assignment.value);
        return editor.controlAction(field);
    case FieldKind::Computed:
        return;
    }
}

class Set final : public Command
{
public:
    CLI::App *addTo(CLI::App &application) override
    {
        CLI::App *command = application.add_subcommand(
            "set", "Change fields of a title as if they were typed into the editor, and store them");
        command->add_option("TITLE", m_title, "The title")->required();
        command
            ->add_option(
                "FIELD=VALUE", m_assignments,
                "FIELD is the name of a control or of a PAD element; a check list takes names joined by "
                "commas, the check box Y or N")
            ->required();
        command->add_flag("--typing", m_typing, "Without leaving the field");
        command->add_flag("--json", m_json, "Show the title afterwards, as a JSON object");
        return command;
    }

    [[nodiscard]] bool writes() const override { return true; }

    ExitStatus run() override
    {
        QList<Assignment> assignments;
        for (const std::string &argument : m_assignments) {
            const std::optional<Assignment> assignment = parsed(text(argument));
            if (!assignment)
                return WrongUsage;
            assignments.append(*assignment);
        }
        TitleSession session;
        if (const ExitStatus opened = session.open(text(m_title)); opened != Done)
            return opened;
        for (const Assignment &assignment : assignments)
            enter(session.editor(), assignment, !m_typing);
        if (m_json)
            showFields(session, text(m_title), allFields(), true);
        return TitleSession::stored();
    }

private:
    /// None, with a complaint, for what makes no sense.
    static std::optional<Assignment> parsed(const QString &argument)
    {
        const qsizetype sign = argument.indexOf(u'=');
        const auto field = sign < 0 ? std::nullopt : fieldNamed(QStringView(argument).first(sign));
        if (!field) {
            complain(u"%1 is no FIELD=VALUE of a field that exists."_s.arg(argument));
            return std::nullopt;
        }
        const Assignment assignment{*field, argument.sliced(sign + 1)};
        if (!isPossible(assignment)) {
            complain(u"%1 cannot be set to %2."_s.arg(padField(*field).control, assignment.value));
            return std::nullopt;
        }
        return assignment;
    }

    std::string m_title;
    std::vector<std::string> m_assignments;
    bool m_typing = false;
    bool m_json = false;
};

} // namespace

std::unique_ptr<Command> setCommand()
{
    return std::make_unique<Set>();
}

} // namespace quillon::cli
