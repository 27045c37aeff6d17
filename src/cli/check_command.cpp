#include "cli/check_command.h"

#include "cli/check_report.h"
#include "cli/title_session.h"
#include "findings/advice.h"
#include "findings/rule_pack.h"
#include "overview/title_operations.h"
#include "pad/pad_reader.h"
#include "store/storage_status.h"
#include "store/title_folder.h"
#include "validation/error_pass.h"
#include "validation/field_rules.h"

#include <QFile>
#include <QJsonArray>
#include <QJsonObject>

#include <algorithm>
#include <cstdio>

using namespace Qt::StringLiterals;

namespace quillon::cli {

namespace {

Result<title_operations::PadFile> readStandardInput()
{
    QFile input;
    if (!input.open(stdin, QIODevice::ReadOnly))
        return Error{Error::Kind::Unreadable, u"-"_s, input.errorString()};
    QByteArray bytes = input.read(title_operations::maxPadFileSize + 1);
    if (input.error() != QFileDevice::NoError)
        return Error{Error::Kind::Unreadable, u"-"_s, input.errorString()};
    return title_operations::padFile(std::move(bytes), u"-"_s);
}

Checked refused(const QString &target, ExitStatus status, const QString &failure)
{
    complain(failure);
    return {.target = target, .status = status, .failure = failure};
}

/// The answer to a file that is none to check.
Checked refusedFile(const QString &target, const Error &error)
{
    if (error.kind == Error::Kind::Unintelligible)
        return refused(target, Refused, target + u": this does not appear to be a PAD file."_s);
    const bool isMissing = error.kind == Error::Kind::Missing;
    return refused(target, FileFailed,
                   isMissing ? u"There is no title and no readable file named %1."_s.arg(target)
                             : failureLine(error));
}

class Check final : public Command
{
public:
    void describe(CLI::App &command) override
    {
        command.description(
            "Judge titles, or PAD files from anywhere: a line for each error with field, element and "
            "message; the exit status is 1 when there are any");
        command
            .add_option("TITLE-or-FILE", m_targets,
                        "A title, or else a file, which is only read; - is standard input")
            ->required();
        CLI::Option *json = command.add_flag("--json", m_json, "As a JSON object, of one title or file");
        command.add_flag("--explain", m_explains,
                         "With what each error means and what would pass, and with advice");
        std::vector<std::string> names;
        for (const CheckFormat &format : checkFormats())
            names.emplace_back(format.name);
        command.add_option("--format", m_format, "Errors and advice with their places, for tools")
            ->check(CLI::IsMember(names))
            ->excludes(json);
        command.add_option("--fail-on", m_failOn, "What makes the exit status 1; errors always do")
            ->check(CLI::IsMember({"error", "warning"}))
            ->excludes(json);
        command.add_option("--pack", m_packNames,
                           "Further rules: the pack https, or a file; advice of theirs goes with the rest");
    }

    [[nodiscard]] bool writes() const override
    {
        return std::ranges::any_of(m_targets,
                                   [](const std::string &target) { return isTitle(text(target)); });
    }

    ExitStatus run() override
    {
        if (m_json && m_targets.size() > 1) {
            complain(u"--json is for one title or file; use --format json for several."_s);
            return WrongUsage;
        }
        if (const ExitStatus loaded = loadPacks(); loaded != Done)
            return loaded;
        QList<Checked> all;
        for (const std::string &target : m_targets)
            all.append(isTitle(text(target)) ? checkTitle(text(target)) : checkFile(text(target)));
        if (isPlain())
            tellPlainly(all.front());
        else
            checkReport(m_format.empty() ? "text" : m_format)(
                {.all = all, .failOn = failOn(), .rules = rules(), .explains = m_explains});
        return answer(all);
    }

private:
    static bool isTitle(const QString &target) { return title_folder::exists(target); }

    [[nodiscard]] bool isPlain() const
    {
        const bool isExplained = m_explains || m_packNames.empty();
        return m_targets.size() == 1 && m_format.empty() && m_failOn.empty() && isExplained;
    }

    ExitStatus loadPacks()
    {
        for (const std::string &name : m_packNames) {
            Result<RulePack> pack = rule_packs::load(text(name));
            if (!pack)
                return outcome(pack.error());
            m_packs.append(*std::move(pack));
        }
        return Done;
    }

    [[nodiscard]] QList<FindingRule> rules() const
    {
        QList<FindingRule> all(findings::rules().begin(), findings::rules().end());
        for (const RulePack &pack : m_packs) {
            for (const PackRule &rule : pack.rules)
                all.append({rule.id, rule.severity, rule.summary});
        }
        return all;
    }

    [[nodiscard]] Severity failOn() const
    {
        return m_failOn == "warning" ? Severity::Warning : Severity::Error;
    }

    [[nodiscard]] Checked checkTitle(const QString &title) const
    {
        TitleSession session;
        if (const ExitStatus opened = session.open(title); opened != Done)
            return {.target = title, .isTitle = true, .status = opened, .failure = u"It cannot be read."_s};
        Checked checked{.target = title,
                        .isTitle = true,
                        .status = TitleSession::stored(),
                        .errors = session.editor().errors()};
        addFindings({.form = session.editor().form(), .packs = m_packs}, checked);
        return checked;
    }

    [[nodiscard]] Checked checkFile(const QString &file) const
    {
        const auto pad = file == u"-" ? readStandardInput() : title_operations::readPadFile(file);
        if (!pad)
            return refusedFile(file, pad.error());
        PadForm form;
        loadPADData(pad->document, form);
        ErrorPass errors;
        field_rules::checkEntries(form, errors);
        Checked checked{.target = file, .errors = errors.errors()};
        addFindings({.form = form, .document = &pad->document, .packs = m_packs}, checked);
        return checked;
    }

    void addFindings(const findings::Subject &subject, Checked &checked) const
    {
        if (isPlain() && !m_explains)
            return;
        for (Finding &finding : findings::all(checked.errors, subject)) {
            const PadField &field = padField(finding.field);
            checked.findings.append(
                {std::move(finding), subject.document ? subject.document->position(field) : std::nullopt});
        }
    }

    void tellPlainly(const Checked &checked) const
    {
        if (!checked.failure.isEmpty())
            return;
        if (m_json)
            printJson(checked);
        else if (m_explains)
            printExplained(checked);
        else
            for (const PadField &field : padFields) {
                if (const auto error = checked.errors.find(field.control.toString());
                    error != checked.errors.end())
                    printColumns({error->first, field.element.toString(), error->second});
            }
    }

    static void printExplained(const Checked &checked)
    {
        for (const auto &[finding, position] : checked.findings) {
            const PadField &field = padField(finding.field);
            const QString severity = findings::name(finding.severity) + u' ' + finding.id;
            printColumns({field.control.toString(), field.element.toString(),
                          finding.recorded.isEmpty() ? severity : finding.recorded});
            printColumns({u"    "_s + finding.explanation});
        }
    }

    void printJson(const Checked &checked) const
    {
        QJsonArray errors;
        QJsonArray advice;
        const auto object = [](const PadField &field, const QString &message) {
            return QJsonObject{{u"field"_s, field.control.toString()},
                               {u"element"_s, field.element.toString()},
                               {u"message"_s, message}};
        };
        for (const PadField &field : padFields) {
            const auto error = checked.errors.find(field.control.toString());
            if (!m_explains && error != checked.errors.end())
                errors.append(object(field, error->second));
        }
        for (const auto &[finding, position] : checked.findings) {
            QJsonObject each = object(padField(finding.field), finding.recorded);
            each[u"id"_s] = finding.id.toString();
            each[u"explanation"_s] = finding.explanation;
            if (finding.severity == Severity::Error) {
                errors.append(each);
                continue;
            }
            each.remove(u"message"_s);
            each[u"severity"_s] = findings::name(finding.severity).toString();
            advice.append(each);
        }
        QJsonObject told{{checked.isTitle ? u"title"_s : u"file"_s, checked.target},
                         {u"valid"_s, checked.errors.empty()},
                         {u"errors"_s, errors}};
        if (m_explains)
            told[u"advice"_s] = advice;
        print(QJsonDocument(told));
    }

    /// What went worst; errors of one file do not hide that another could not be read.
    [[nodiscard]] ExitStatus answer(const QList<Checked> &all) const
    {
        ExitStatus worst = Done;
        for (const Checked &checked : all) {
            const bool fails = std::ranges::any_of(checked.findings, [this](const LocatedFinding &each) {
                return isFailure(each.finding, failOn());
            });
            worst = std::max({worst, checked.status, fails || !checked.errors.empty() ? AnswerIsNo : Done});
        }
        return worst;
    }

    std::vector<std::string> m_targets;
    bool m_json = false;
    bool m_explains = false;
    std::string m_format;
    std::string m_failOn;
    std::vector<std::string> m_packNames;
    QList<RulePack> m_packs;
};

} // namespace

std::unique_ptr<Command> checkCommand()
{
    return std::make_unique<Check>();
}

} // namespace quillon::cli
