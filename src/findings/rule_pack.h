#pragma once

#include "findings/finding.h"
#include "platform/regex.h"
#include "platform/result.h"

#include <QList>
#include <QStringList>

#include <optional>

namespace quillon {

/// A rule beyond the form's own, of a pack: what the text of some fields has to be. An empty text passes all.
struct PackRule
{
    QString id; ///< "PACK/RULE".
    Severity severity = Severity::Warning;
    QString summary;
    QString explanation; ///< "{field}" stands for what the field is called.
    QList<FieldId> fields;
    // Case aside; an empty list asks for nothing.
    QStringList beginsWith = {};       ///< The text has to begin with one of them.
    QStringList beginsNotWith = {};    ///< It may begin with none of them.
    QStringList endsWith = {};         ///< It has to end with one of them.
    std::optional<int> maxLength = {}; ///< UTF-16 units.
    std::optional<Regex> matches = {}; ///< It has to match somewhere.

    [[nodiscard]] bool passes(const QString &text) const;
};

/**
 * Rules that an author switches on besides those of the form: what newer forms allow and ask for, or what his
 * own house does. What they object to is advice and never an error.
 *
 * A pack is a JSON document, described in the manual under "Rule packs".
 */
struct RulePack
{
    QString id;
    QString title;
    QList<PackRule> rules;
};

namespace rule_packs {

/// The pack that @p json describes; unintelligible with what is wrong in it. @p name is for the error.
Result<RulePack> parsed(const QByteArray &json, const QString &name);

/// The packs that come with Quillon.
const QList<RulePack> &builtIn();

/// The built-in pack of the id @p name, else the one in the file @p name.
Result<RulePack> load(const QString &name);

} // namespace rule_packs

} // namespace quillon
