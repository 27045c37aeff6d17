#include "cli/commands.h"
#include "pad/pad_form.h"
#include "pad/pad_reader.h"
#include "store/add_delete_import_edit.h"
#include "store/process_state.h"

#include <QJsonArray>
#include <QJsonObject>

using namespace Qt::StringLiterals;

namespace quillon::cli {

namespace {

class Show final : public Command
{
public:
    CLI::App *addTo(CLI::App &application) override
    {
        CLI::App *command = application.add_subcommand("show", "The fields of a title and their values");
        command->add_option("TITLE", m_title, "The title")->required();
        command->add_option("FIELD", m_fields, "Only these: the name of a control or of a PAD element");
        command->add_flag("--json", m_json, "As a JSON object");
        return command;
    }

    [[nodiscard]] bool writes() const override { return false; }

    ExitStatus run() override
    {
        QList<FieldId> chosen;
        for (const std::string &name : m_fields) {
            const auto field = fieldNamed(text(name));
            if (!field) {
                complain(u"There is no field named %1."_s.arg(text(name)));
                return WrongUsage;
            }
            chosen.append(*field);
        }
        if (!titleExists(text(m_title)))
            return Refused;
        selectTitle(text(m_title));
        const auto stored = AddDeleteImportEdit::returnDataObjectFor(u"data");
        if (!stored) {
            complain(u"The PAD file of this title cannot be read."_s);
            return FileFailed;
        }
        PadForm form;
        loadPADData(*stored, form);
        if (chosen.isEmpty()) {
            for (const PadField &field : padFields)
                chosen.append(field.id);
        }
        show(form, chosen);
        return Done;
    }

private:
    void show(const PadForm &form, const QList<FieldId> &chosen) const
    {
        QJsonArray fields;
        for (const FieldId id : chosen) {
            const PadField &field = padField(id);
            if (m_json)
                fields.append(QJsonObject{{u"field"_s, field.control.toString()},
                                          {u"element"_s, field.element.toString()},
                                          {u"value"_s, form.value(id)}});
            else
                print(field.element + u": " + form.value(id));
        }
        if (m_json)
            print(QJsonDocument(QJsonObject{{u"name"_s, text(m_title)},
                                            {u"fields"_s, fields},
                                            {u"sizeKB"_s, form.text(FieldId::programSizeKB).text()},
                                            {u"sizeMB"_s, form.text(FieldId::programSizeMB).text()}}));
    }

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
