#pragma once

#include "findings/finding.h"
#include "platform/string_dictionary.h"

#include <QDate>
#include <QList>

namespace quillon {
class PadDocument;
class PadForm;
struct RulePack;
} // namespace quillon

/// Warnings and hints: what the form lets pass and the author hardly meant. They are no errors, are stored
/// nowhere, and change nothing.
namespace quillon::findings {

/// What is looked at.
struct Subject
{
    const PadForm &form;
    /// The file as it stands, where it is another than the form would write; what the form has calculated
    /// anew is looked up in it.
    const PadDocument *document = nullptr;
    /// Whose rules are asked, too; they must outlive what is found, for its ids are theirs.
    std::span<const RulePack> packs = {};
    QDate today = QDate::currentDate();
};

/// What is advised, in the order of the rules, those of packs last.
QList<Finding> advice(const Subject &subject);

/// The errors of @p recorded, explained, and behind them what is advised.
QList<Finding> all(const StringDictionary &recorded, const Subject &subject);

/// What an author reads of @p finding: the explanation, behind "Warning:" or "Hint:" where it is no error.
QString sentence(const Finding &finding);

/// What is told of @p field in one text, a finding a line: the message as it is recorded with its explanation
/// below, and advice. Empty when there is nothing.
QString told(FieldId field, const StringDictionary &recorded, const Subject &subject);

} // namespace quillon::findings
