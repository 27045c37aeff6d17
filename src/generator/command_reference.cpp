#include "generator/command_reference.h"

#include <QAction>
#include <QFileInfo>
#include <QMenu>
#include <QMenuBar>
#include <QProcess>
#include <QRegularExpression>

using namespace Qt::StringLiterals;

namespace quillon::command_reference {

namespace {

Result<QString> helpOf(const QString &program, const QStringList &command)
{
    QProcess process;
    process.start(program, command + QStringList{u"--help"_s});
    process.closeWriteChannel();
    if (!process.waitForFinished(-1) || process.exitStatus() != QProcess::NormalExit ||
        process.exitCode() != 0)
        return Error{Error::Kind::NotDone, program, u"--help failed: "_s + process.errorString()};
    return QString::fromUtf8(process.readAllStandardOutput());
}

/// The names below "Subcommands:" in @p help.
QStringList commandsIn(const QString &help)
{
    static const QRegularExpression name(u"^  ([a-z][a-z-]*)\\s"_s, QRegularExpression::MultilineOption);
    const qsizetype start = help.indexOf(u"\nSubcommands:");
    QStringList names;
    for (auto found = name.globalMatch(help, qMax(start, 0LL)); start >= 0 && found.hasNext();)
        names.append(found.next().captured(1));
    return names;
}

/// A command's help: its sentence as a paragraph, then how it is called.
QString section(const QString &program, const QStringList &command, const QString &help)
{
    const qsizetype usage = qMax(help.indexOf(u"Usage:"), 0LL);
    const QString level = command.size() > 1 ? u"h3"_s : u"h2"_s;
    const QString heading = command.isEmpty() ? program : command.join(u' ');
    return u"<%1 id=\"%2\">%3</%1>\n<p>%4</p>\n<pre>%5</pre>\n"_s.arg(
        level, command.isEmpty() ? u"program"_s : command.join(u'-'), heading,
        help.left(usage).trimmed().toHtmlEscaped(), help.sliced(usage).trimmed().toHtmlEscaped());
}

Result<QString> withCommands(const QString &program, const QStringList &command)
{
    Result<QString> help = helpOf(program, command);
    if (!help)
        return help;
    QString text = section(QFileInfo(program).fileName(), command, *help);
    for (const QString &name : commandsIn(*help)) {
        Result<QString> below = withCommands(program, command + QStringList{name});
        if (!below)
            return below;
        text += *below;
    }
    return text;
}

QString plain(QString text)
{
    return text.remove(u'&').toHtmlEscaped();
}

QString keys(const QAction &action)
{
    QStringList all;
    for (const QKeySequence &each : action.shortcuts())
        all.append(plain(each.toString()));
    return all.join(u", "_s);
}

/// What the tool tip says beside the command's name and its first key.
QString more(const QAction &action)
{
    const QString key = u" (%1)"_s.arg(action.shortcut().toString(QKeySequence::NativeText));
    const QString tip = plain(action.toolTip().remove(key));
    return tip == plain(action.text()) || tip == plain(action.iconText()) ? QString() : tip;
}

QString row(const QAction &action)
{
    return u"<tr><td>%1</td><td>%2</td><td>%3</td></tr>\n"_s.arg(plain(action.text()), keys(action),
                                                                 more(action));
}

} // namespace

Result<QString> ofProgram(const QString &program)
{
    return withCommands(program, {});
}

QString ofMenus(const QString &window, const QMenuBar &bar)
{
    QString text;
    for (const QAction *menu : bar.actions()) {
        if (!menu->menu())
            continue;
        text += u"<h3 id=\"%1-%2\">%2</h3>\n<table>\n"_s.arg(window, plain(menu->text()));
        for (const QAction *action : menu->menu()->actions()) {
            if (!action->isSeparator())
                text += row(*action);
        }
        text += u"</table>\n"_s;
    }
    return text;
}

} // namespace quillon::command_reference
