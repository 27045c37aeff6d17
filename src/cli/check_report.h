#pragma once

#include "cli/command.h"
#include "findings/finding.h"
#include "pad/pad_document.h"
#include "platform/string_dictionary.h"

#include <optional>

/// What checking several titles and files gives, in the formats of those who read it.
namespace quillon::cli {

/// What is told, and where it stands in the file.
struct LocatedFinding
{
    Finding finding;
    std::optional<PadDocument::Position>
        position; ///< Without one, neither the field nor a group of it is there.
};

/// What came of one title or file.
struct Checked
{
    QString target; ///< As it was asked for.
    bool isTitle = false;
    ExitStatus status = Done; ///< Whether it could be checked.
    QString failure = {};     ///< Why it could not be; a sentence.
    StringDictionary errors = {};
    QList<LocatedFinding> findings = {};
};

/// Whether @p finding makes the answer no.
inline bool isFailure(const Finding &finding, Severity failOn)
{
    return finding.severity <= failOn;
}

/// What there is to report.
struct CheckResults
{
    QList<Checked> all;
    Severity failOn = Severity::Error; ///< How serious a finding has to be for the answer to be no.
    QList<FindingRule> rules;          ///< All that were asked.
    bool explains = false;             ///< Lines are explained; other formats always are.
};

/// Writes all of it to standard output.
using CheckReport = void (*)(const CheckResults &results);

/// A format and its name.
struct CheckFormat
{
    const char *name;
    CheckReport report;
};

/// All formats: lines as compilers write them, JSON, SARIF 2.1.0, JUnit's XML, and commands of GitHub's.
std::span<const CheckFormat> checkFormats();

/// The format called @p name, which must be one of checkFormats().
CheckReport checkReport(const std::string &name);

/// A finding in one line, as compilers write it: "FILE:LINE:COLUMN: error: message [id]".
QString lineOf(const Checked &checked, const LocatedFinding &each);

void reportAsSarif(const CheckResults &results);
void reportAsJUnit(const CheckResults &results);

} // namespace quillon::cli
