#pragma once

#include "platform/string_dictionary.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QString>
#include <QStringList>

/// What commands tell: data on standard output, messages on standard error.
///
/// Names and values come from anybody's files, and a terminal obeys what is written to it. So a control
/// character, which only a line end and a tab may be, is shown as a picture of itself ("␛") wherever somebody
/// reads: in messages, in columns, and in everything that a terminal gets. Elsewhere data stays exact.
namespace quillon::cli {

/// Writes @p line and a line end to standard output.
void print(const QString &line);

/// Writes @p columns as one line, a tab between two. Tabs and line ends inside of a column become blanks.
void printColumns(QStringList columns);

/// Writes @p document, indented, to standard output.
void print(const QJsonDocument &document);

/// Writes @p bytes as they are to standard output.
void print(const QByteArray &bytes);

/// Milliseconds since 1970 (UTC) as scripts read a time.
QString isoTime(qint64 time);

/// Message by field, as scripts read errors.
QJsonArray errorsAsJson(const StringDictionary &errors);

/// Writes @p line and a line end to standard error, unless that has been told already.
void complain(const QString &line);

/// Writes @p text, which has line ends of its own, to standard error.
void explain(const QString &text);

/// Makes the library's own log lines go to standard error in the same manner.
void tellLogLines();

/// Whether all that was printed has been written; complains when it has not.
bool isPrinted();

} // namespace quillon::cli
