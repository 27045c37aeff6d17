#include "cli/output.h"

#include "platform/plain_text.h"
#include "platform/text_decoding.h"

#include <QDateTime>
#include <QJsonObject>
#include <QSet>

#include <cstdio>
#include <string_view>
#include <unistd.h>

using namespace Qt::StringLiterals;

namespace quillon::cli {

namespace {

constexpr char16_t deleteCharacter = u'\x7f';

void write(const QByteArray &bytes, std::FILE *file)
{
    std::fwrite(bytes.constData(), 1, size_t(bytes.size()), file);
}

bool isTerminal()
{
    static const bool is = ::isatty(STDOUT_FILENO) == 1;
    return is;
}

QString withVisibleControls(QString text)
{
    for (QChar &each : text) {
        if (each.category() == QChar::Other_Control && each != u'\n' && each != u'\t')
            each = controlPicture(each);
    }
    return text;
}

/// JSON itself escapes the control characters below the blank; of the others a terminal gets escapes as well,
/// which read as the same text.
QByteArray withEscapedControls(const QByteArray &json)
{
    QString escaped;
    for (const QChar each : QString::fromUtf8(json)) {
        if (each.category() == QChar::Other_Control && each >= deleteCharacter)
            escaped += u"\\u00%1"_s.arg(each.unicode(), 2, 16);
        else
            escaped += each;
    }
    return escaped.toUtf8();
}

/// Whether @p line has not been told yet. What fails is logged where that happens, and commands complain of
/// it in the same words.
bool isNew(const QString &line)
{
    static QSet<QString> told;
    const qsizetype before = told.size();
    told.insert(line);
    return told.size() > before;
}

/// What could not be read or stored is a complaint like those of the commands, for which it may be one, too.
void tellLogLine(QtMsgType type, const QMessageLogContext &context, const QString &message)
{
    if (std::string_view(context.category) == "quillon.store")
        complain(message);
    else if (isNew(message))
        explain(qFormatLogMessage(type, context, message) + u'\n');
}

} // namespace

void print(const QString &line)
{
    write((isTerminal() ? withVisibleControls(line) : line).toUtf8() + '\n', stdout);
}

void printColumns(QStringList columns)
{
    for (QString &column : columns) {
        for (const char16_t separator : {u'\t', u'\n', u'\r'})
            column.replace(separator, u' ');
    }
    write(withVisibleControls(columns.join(u'\t')).toUtf8() + '\n', stdout);
}

void print(const QJsonDocument &document)
{
    write(isTerminal() ? withEscapedControls(document.toJson()) : document.toJson(), stdout);
}

void print(const QByteArray &bytes)
{
    write(isTerminal() ? withVisibleControls(exactText(bytes)).toUtf8() : bytes, stdout);
}

QString isoTime(qint64 time)
{
    return QDateTime::fromMSecsSinceEpoch(time).toUTC().toString(Qt::ISODate);
}

QJsonArray errorsAsJson(const StringDictionary &errors)
{
    QJsonArray array;
    for (const auto &[field, message] : errors)
        array.append(QJsonObject{{u"field"_s, field}, {u"message"_s, message}});
    return array;
}

void complain(const QString &line)
{
    if (isNew(line))
        explain(u"quillon-cli: "_s + line + u'\n');
}

void explain(const QString &text)
{
    write(withVisibleControls(text).toUtf8(), stderr);
}

void tellLogLines()
{
    qInstallMessageHandler(tellLogLine);
}

bool isPrinted()
{
    if (std::fflush(stdout) == 0 && std::ferror(stdout) == 0)
        return true;
    complain(u"The output could not be written."_s);
    return false;
}

} // namespace quillon::cli
