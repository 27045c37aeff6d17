#pragma once

#include <QCoreApplication>
#include <QStringView>

/**
 * How texts come into the author's language.
 *
 * - What a class with tr() tells goes through it. Functions without a class have one beside them that is made
 * of Q_DECLARE_TR_FUNCTIONS.
 * - Tables stay constant data: QUILLON_TR_NOOP marks their texts, translated() is called where one is shown.
 * - What is told in numbers has a text of its own for one, and "%n" for several.
 * - What stays English, because it is recorded or compared, says so: fixedEnglish().
 */

/// @p text, a literal without a prefix, as UTF-16 in a table whose texts are translated in @p context.
#define QUILLON_TR_NOOP(context, text) u"" text

namespace quillon {

/// What QUILLON_TR_NOOP marked in @p context, in the author's language; any other text comes back as it is.
inline QString translated(const char *context, QStringView text)
{
    return QCoreApplication::translate(context, text.toUtf8().constData());
}

/// @p text, which an author may see and which is the same in every language.
inline QString fixedEnglish(QStringView text)
{
    return text.toString();
}

} // namespace quillon
