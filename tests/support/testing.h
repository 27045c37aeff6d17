#pragma once

#include "support/files.h"

#include <gtest/gtest.h>
#include <ostream>

// What every test has: texts as literals, and how a failed comparison shows them; the framework finds these
// beside the types.

using namespace Qt::StringLiterals;
using namespace quillon;

inline std::ostream &operator<<(std::ostream &out, const QString &text)
{
    return out << text.toStdString();
}

inline std::ostream &operator<<(std::ostream &out, const QByteArray &bytes)
{
    return out << bytes.toStdString();
}

inline void PrintTo(const QString &text, std::ostream *out)
{
    *out << '"' << text << '"';
}

inline void PrintTo(const QByteArray &bytes, std::ostream *out)
{
    *out << '"' << bytes << '"';
}

namespace quillon {

/// What stands in @p text with blanks between.
inline QStringList words(const QString &text, QChar between = u' ')
{
    return text.split(between, Qt::SkipEmptyParts);
}

/// The rule of faults.h by which the @p turn-th @p call fails.
inline QByteArray failing(const QByteArray &call, int turn, const QByteArray &action = "EIO")
{
    return call + '@' + QByteArray::number(turn) + '=' + action;
}

} // namespace quillon
