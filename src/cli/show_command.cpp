#include "cli/show_command.h"

#include "cli/title_session.h"

using namespace Qt::StringLiterals;

namespace quillon::cli {

namespace {

class Show final : public Command
{
public:
    void describe(CLI::App &command) override
    {
        command.description("The fields of a title: values and hints, an \"!\" before what breaks a rule");
        command.add_option("TITLE", m_title, "The title")->required();
        command.add_option("FIELD", m_fields, "Only these: the name of a control or of a PAD element");
        command.add_flag("--json", m_json, "As a JSON object");
    }

    [[nodiscard]] bool writes() const override { return true; } // The title is checked, and the check stores.

    ExitStatus run() override
    {
        QList<FieldId> fields;
        for (const std::string &name : m_fields) {
            const auto field = fieldNamed(text(name));
            if (!field) {
                complain(u"There is no field named %1."_s.arg(text(name)));
                return WrongUsage;
            }
            fields.append(*field);
        }
        TitleSession session;
        if (const ExitStatus opened = session.open(text(m_title)); opened != Done)
            return opened;
        showFields(session, text(m_title), fields.isEmpty() ? allFields() : fields, m_json);
        return TitleSession::stored();
    }

private:
    std::string m_title;
    std::vector<std::string> m_fields;
    bool m_json = false;
};

} // namespace

std::unique_ptr<Command> showCommand()
{
    return std::make_unique<Show>();
}

} // namespace quillon::cli
