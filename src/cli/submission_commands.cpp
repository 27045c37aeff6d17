#include "cli/submission_commands.h"

#include "cli/title_session.h"
#include "store/add_delete_import_edit.h"
#include "store/process_state.h"
#include "submission/field_copy.h"
#include "submission/submission_marks.h"

using namespace Qt::StringLiterals;

namespace quillon::cli {

namespace {

/// Sets or takes away the mark of a title for a site.
class Mark final : public Command
{
public:
    using Change = Result<> (*)(const QString &site);

    Mark(const char *help, Change change) : m_help(help), m_change(change) {}

    void describe(CLI::App &command) override
    {
        command.description(m_help);
        command.add_option("TITLE", m_title, "The title")->required();
        command.add_option("SITE", m_site, "The site")->required();
    }

    [[nodiscard]] bool writes() const override { return true; }

    ExitStatus run() override
    {
        TitleSession session;
        if (const ExitStatus opened = session.open(text(m_title)); opened != Done)
            return opened;
        if (!mwqnSCPreallSitesDict.contains(text(m_site))) {
            complain(u"There is no site named %1."_s.arg(text(m_site)));
            return Refused;
        }
        const ExitStatus status = outcomeOrRefusal(m_change(text(m_site)));
        return status == Done ? TitleSession::stored() : status;
    }

private:
    const char *m_help;
    Change m_change;
    std::string m_title;
    std::string m_site;
};

class Copy final : public Command
{
public:
    void describe(CLI::App &command) override
    {
        command.description("The text that a button of the field copy panel would paste, without a line end");
        command.add_option("TITLE", m_title, "The title")->required();
        command.add_option("BUTTON", m_button, "The button's action, such as companyName")->required();
    }

    [[nodiscard]] bool writes() const override { return true; } // The title is checked, and the check stores.

    ExitStatus run() override
    {
        const FieldCopyButton *button = fieldCopyButtonNamed(text(m_button));
        if (!button) {
            complain(u"There is no button named %1."_s.arg(text(m_button)));
            return WrongUsage;
        }
        TitleSession session;
        if (const ExitStatus opened = session.open(text(m_title)); opened != Done)
            return opened;
        const auto pad = AddDeleteImportEdit::returnDataObjectFor(u"data");
        if (pad.isError(Error::Kind::Unreadable))
            return outcome(pad.error());
        const auto value = pasteText(*button, pad.valueOr({}));
        if (!value) {
            complain(u"This field has no value to be pasted."_s);
            return AnswerIsNo;
        }
        print(value->toUtf8());
        return TitleSession::stored();
    }

private:
    std::string m_title;
    std::string m_button;
};

} // namespace

std::unique_ptr<Command> markCommand()
{
    return std::make_unique<Mark>("Mark a title as submitted to a site, at its present version",
                                  &submission_marks::markSubmitted);
}

std::unique_ptr<Command> unmarkCommand()
{
    return std::make_unique<Mark>("Take the mark of a site away from a title", &submission_marks::removeMark);
}

std::unique_ptr<Command> copyCommand()
{
    return std::make_unique<Copy>();
}

} // namespace quillon::cli
