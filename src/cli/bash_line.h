#pragma once

#include <QByteArrayView>
#include <QString>
#include <QStringList>

namespace quillon::cli {

/// A command line of bash as far as the cursor. It is taken apart without being expanded: what a word says
/// is never run, and a variable in it stays as it is written.
struct BashLine
{
    enum Quote
    {
        None,
        Single,
        Double,
        Escapes ///< $'…'
    };

    QStringList words = {}; ///< Without their quotes; the last one is being typed, and may be empty.
    Quote open = None;      ///< The quote that is open at the cursor.
    QString kept = {};      ///< The beginning of the last word that bash leaves alone when it completes.
};

/// @p line in its words. A completion replaces what stands behind the last of @p wordBreaks.
BashLine bashLine(QByteArrayView line, QByteArrayView wordBreaks);

/// What bash is to put in place so that the last word of @p line becomes @p word, which begins as that does.
/// The shell reads it as these very characters; no control character is in it.
QString bashReplacement(const BashLine &line, const QString &word);

} // namespace quillon::cli
