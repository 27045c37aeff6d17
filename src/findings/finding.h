#pragma once

#include "pad/field_catalogue.h"

#include <QString>

#include <span>

/**
 * What is told of a form beside the recorded messages, which stay as they are.
 *
 * - explanations.h: what is wrong with a field that has a recorded error, and what would pass.
 * - advice.h: what is no error, but was hardly meant.
 * - rule_pack.h: further rules as data, which authors switch on.
 *
 * A finding's id names its kind and not its field: "text-too-long" is the same in thirty fields. Whoever
 * offers to mend something looks for the id and reads the field from the finding. All ids stand in
 * finding_rules.cpp; one that was released never changes its meaning and is never used again.
 */
namespace quillon {

enum class Severity : quint8
{
    Error,   ///< Recorded; the title is not valid.
    Warning, ///< Probably wrong.
    Hint     ///< Could be better.
};

/// One thing that is told of one field.
struct Finding
{
    QStringView id; ///< Of a row of findings::rules(), or of a rule pack.
    Severity severity = Severity::Error;
    FieldId field = FieldId::programName;
    QString recorded = {};    ///< The message as it is recorded; empty in advice.
    QString explanation = {}; ///< One or two sentences, without markup: what is wrong, what would pass.
};

/// What all findings of one id have in common.
struct FindingRule
{
    QStringView id;
    Severity severity;
    QStringView summary; ///< A sentence for lists of all rules.
};

namespace findings {

/// All kinds of findings, errors first.
std::span<const FindingRule> rules();

/// The rule of that id, which must be one of rules().
const FindingRule &rule(QStringView id);

/// "error", "warning" or "hint".
QStringView name(Severity severity);

} // namespace findings

} // namespace quillon
