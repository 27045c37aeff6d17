#pragma once

#include "support/testing.h"

#include <QRegularExpression>

namespace quillon {

/// @p text with what "\n", "\t", "\r", "\f", "\\" and "\u0000" stand for in it.
inline QString unescaped(const QString &text)
{
    static const QRegularExpression escape(u"\\\\(?:u([0-9a-f]{4})|(.))"_s);
    static const QString letters = u"ntrf\\"_s;
    QString plain;
    qsizetype at = 0;
    for (const QRegularExpressionMatch &each : escape.globalMatch(text)) {
        plain += QStringView(text).sliced(at, each.capturedStart() - at);
        plain += each.hasCaptured(1) ? QChar(each.captured(1).toUShort(nullptr, 16))
                                     : QChar(u"\n\t\r\f\\"[letters.indexOf(each.captured(2))]);
        at = each.capturedEnd();
    }
    return plain + QStringView(text).sliced(at);
}

/// The rows of tests/samples/@p name.txt: their columns between bars, unescaped, "{x*40}" as forty letters x;
/// "#" begins a remark.
inline QList<QStringList> table(const QString &name)
{
    QList<QStringList> rows;
    const QRegularExpression many(u"\\{(.)\\*(\\d+)\\}"_s);
    QString text = QString::fromUtf8(sample(name + u".txt"));
    for (QRegularExpressionMatch match; (match = many.match(text)).hasMatch();)
        text.replace(match.capturedStart(), match.capturedLength(),
                     match.captured(1).repeated(match.captured(2).toInt()));
    for (const QString &line : words(text, u'\n')) {
        if (line.startsWith(u'#'))
            continue;
        rows.append(QStringList());
        for (const QString &cell : line.split(u'|'))
            rows.last().append(unescaped(cell));
    }
    EXPECT_FALSE(rows.isEmpty()) << name;
    return rows;
}

} // namespace quillon
