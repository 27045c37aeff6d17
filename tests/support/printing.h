#pragma once

#include <QByteArray>
#include <QString>

#include <ostream>

// How a failed comparison shows Qt's texts; the test framework finds these beside the types.

inline void PrintTo(const QString &text, std::ostream *out)
{
    *out << '"' << text.toStdString() << '"';
}

inline void PrintTo(const QByteArray &bytes, std::ostream *out)
{
    *out << '"' << bytes.toStdString() << '"';
}
