#include "cli/check_command.h"

#include "cli/title_session.h"
#include "overview/title_operations.h"
#include "pad/pad_reader.h"
#include "store/title_folder.h"
#include "validation/error_pass.h"
#include "validation/field_rules.h"

#include <QJsonArray>
#include <QJsonObject>

using namespace Qt::StringLiterals;

namespace quillon::cli {

namespace {

class Check final : public Command
{
public:
    CLI::App *addTo(CLI::App &application) override
    {
        CLI::App *command = application.add_subcommand(
            "check",
            "Judge a title, or a PAD file from anywhere: a line for each error with field, element and "
            "message; the exit status is 1 when there are any");
        command->add_option("TITLE-or-FILE", m_target, "A title, or else a file, which is only read")
            ->required();
        command->add_flag("--json", m_json, "As a JSON object");
        return command;
    }

    [[nodiscard]] bool writes() const override { return isTitle(); }

    ExitStatus run() override { return isTitle() ? checkTitle() : checkFile(); }

private:
    [[nodiscard]] bool isTitle() const { return title_folder::exists(text(m_target)); }

    [[nodiscard]] ExitStatus checkTitle() const
    {
        TitleSession session;
        if (const ExitStatus opened = session.open(text(m_target)); opened != Done)
            return opened;
        const ExitStatus answer = tell(u"title"_s, session.editor().errors());
        const ExitStatus stored = TitleSession::stored();
        return stored == Done ? answer : stored;
    }

    [[nodiscard]] ExitStatus checkFile() const
    {
        const QString file = text(m_target);
        const auto pad = title_operations::readPadFile(file);
        if (!pad) {
            const bool readable = isReadableFile(file);
            complain(readable ? file + u": this does not appear to be a PAD file."_s
                              : u"There is no title and no readable file named %1."_s.arg(file));
            return readable ? Refused : FileFailed;
        }
        PadForm form;
        loadPADData(pad->document, form);
        ErrorPass errors;
        field_rules::checkEntries(form, errors);
        return tell(u"file"_s, errors.errors());
    }

    [[nodiscard]] ExitStatus tell(const QString &kind, const StringDictionary &errors) const
    {
        QJsonArray array;
        for (const PadField &field : padFields) {
            const auto error = errors.find(field.control.toString());
            if (error == errors.end())
                continue;
            if (m_json)
                array.append(QJsonObject{{u"field"_s, field.control.toString()},
                                         {u"element"_s, field.element.toString()},
                                         {u"message"_s, error->second}});
            else
                printColumns({field.control.toString(), field.element.toString(), error->second});
        }
        if (m_json)
            print(QJsonDocument(
                QJsonObject{{kind, text(m_target)}, {u"valid"_s, errors.empty()}, {u"errors"_s, array}}));
        return errors.empty() ? Done : AnswerIsNo;
    }

    std::string m_target;
    bool m_json = false;
};

} // namespace

std::unique_ptr<Command> checkCommand()
{
    return std::make_unique<Check>();
}

} // namespace quillon::cli
