#pragma once

#include "support/faults.h"
#include "support/temporary_home.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QProcess>

namespace quillon {

/// What one run of quillon-cli came to.
struct CliResult
{
    int status = -1;
    QByteArray output;
    QByteArray messages;

    [[nodiscard]] QJsonDocument json() const { return QJsonDocument::fromJson(output); }
};

/// Runs the real quillon-cli on the home folder @p home, without anything of this machine's environment. With
/// @p outputFile its standard output goes there; @p faults are rules of faults.h for what lies in that
/// folder. Without faults it has @p environment.
inline CliResult runCli(const QString &home, const QStringList &arguments, const QString &outputFile = {},
                        const QString &faults = {}, const QProcessEnvironment &environment = {})
{
    QProcess process;
    process.setProcessEnvironment(faults.isEmpty() ? environment : faultEnvironment(home, faults));
    if (!outputFile.isEmpty())
        process.setStandardOutputFile(outputFile);
    process.setWorkingDirectory(home);
    process.start(QStringLiteral(QUILLON_CLI), QStringList{QStringLiteral("--home"), home} + arguments);
    process.closeWriteChannel();
    process.waitForFinished(-1);
    return {process.exitStatus() == QProcess::NormalExit ? process.exitCode() : -1,
            process.readAllStandardOutput(), process.readAllStandardError()};
}

/// A test that runs quillon-cli on its own home folder.
class CommandLineTest : public TemporaryHome
{
protected:
    CliResult cli(const QStringList &arguments, const QString &faults = {}) const
    {
        return runCli(home(), arguments, {}, faults);
    }
    /// The same with a command as it is typed in the home folder; '' is an empty argument.
    CliResult run(const QString &command, const QString &faults = {}) const
    {
        return cli(QProcess::splitCommand(command).replaceInStrings(u"''"_s, u""_s), faults);
    }
    int statusOf(const QString &command) const { return run(command).status; }
    /// The data folder's files with their bytes, but for the lock.
    static QMap<QString, QByteArray> files()
    {
        QMap<QString, QByteArray> all = tree(mwqnAppSuppLoc);
        all.remove(u"quillon.lock"_s);
        return all;
    }
};

} // namespace quillon
