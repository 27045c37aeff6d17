#include "cli/set_command.h"

#include "changes/field_assignment.h"
#include "cli/title_session.h"

namespace quillon::cli {

namespace {

/// Does what the author would: changes the control and leaves it.
void enter(Editor &editor, const FieldAssignment &assignment, bool leave)
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
    void describe(CLI::App &command) override
    {
        command.description("Change fields of a title as if they were typed into the editor, and store them");
        command.add_option("TITLE", m_title, "The title")->required();
        command
            .add_option(
                "FIELD=VALUE", m_assignments,
                "FIELD is the name of a control or of a PAD element; a check list takes names joined by "
                "commas, the check box Y or N")
            ->required();
        command.add_flag("--typing", m_typing, "Without leaving the field");
        command.add_flag("--json", m_json, "Show the title afterwards, as a JSON object");
    }

    [[nodiscard]] bool writes() const override { return true; }

    ExitStatus run() override
    {
        QList<FieldAssignment> assignments;
        for (const std::string &argument : m_assignments) {
            const auto assignment = field_assignments::parsed(text(argument));
            if (!assignment) {
                complain(assignment.error().reason);
                return WrongUsage;
            }
            assignments.append(*assignment);
        }
        TitleSession session;
        if (const ExitStatus opened = session.open(text(m_title)); opened != Done)
            return opened;
        for (const FieldAssignment &assignment : assignments)
            enter(session.editor(), assignment, !m_typing);
        if (m_json)
            showFields(session, text(m_title), allFields(), true);
        return TitleSession::stored();
    }

private:
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
