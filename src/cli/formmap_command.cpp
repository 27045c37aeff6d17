#include "cli/formmap_command.h"

#include "cli/output.h"
#include "journal/form_fields.h"

#include <QJsonArray>
#include <QJsonObject>

using namespace Qt::StringLiterals;

namespace quillon::cli {

namespace {

/// What was confirmed of the forms of a site.
class FormMap final : public Command
{
public:
    void describe(CLI::App &command) override
    {
        command.description(
            "What was confirmed of the fields in a site's forms: value, time, signs of the field");
        command.add_option("SITE", m_site, "The name of the site")->required();
        command.add_flag("--json", m_json, "As a JSON array");
        auto *forget = command.add_flag("--forget", m_forget, "Forget all of it");
        command.add_flag("--dry-run", m_dryRun, "Only show what would be forgotten")->needs(forget);
    }

    [[nodiscard]] bool writes() const override { return m_forget && !m_dryRun; }

    ExitStatus run() override { return writes() ? forget() : list(); }

private:
    [[nodiscard]] ExitStatus forget() const
    {
        const auto rows = m_json ? form_fields::of(text(m_site)) : QList<form_fields::Row>();
        if (!rows)
            return outcome(rows.error());
        const Result<qint64> count = form_fields::forget(text(m_site));
        if (!count && !count.isError(Error::Kind::Missing))
            return outcome(count.error());
        if (count.valueOr(0) == 0)
            return nothing();
        if (m_json)
            show(*rows);
        else
            print(u"%1 fields were forgotten."_s.arg(*count));
        return Done;
    }

    [[nodiscard]] ExitStatus list() const
    {
        const auto rows = form_fields::of(text(m_site));
        if (!rows)
            return outcome(rows.error());
        if (m_forget && rows->isEmpty())
            return nothing();
        show(*rows);
        return Done;
    }

    [[nodiscard]] ExitStatus nothing() const
    {
        complain(u"Nothing is remembered of the forms of %1."_s.arg(text(m_site)));
        return Refused;
    }

    void show(const QList<form_fields::Row> &rows) const
    {
        QJsonArray array;
        for (const form_fields::Row &row : rows) {
            const QString time = isoTime(row.time);
            const QJsonObject signs = QJsonDocument::fromJson(row.signs.toUtf8()).object();
            if (m_json)
                array.append(QJsonObject{{u"value"_s, row.value}, {u"time"_s, time}, {u"signs"_s, signs}});
            else
                printColumns({row.value, time, row.signs});
        }
        if (m_json)
            print(QJsonDocument(array));
    }

    std::string m_site;
    bool m_json = false;
    bool m_forget = false;
    bool m_dryRun = false;
};

} // namespace

std::unique_ptr<Command> formmapCommand()
{
    return std::make_unique<FormMap>();
}

} // namespace quillon::cli
