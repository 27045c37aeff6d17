#include "shell/update_check.h"

#include "platform/alert_sheets.h"
#include "platform/application_info.h"
#include "platform/delayed_calls.h"
#include "platform/desktop.h"

#include <QCoreApplication>
#include <QProcess>

#include <utility>

using namespace Qt::StringLiterals;

namespace quillon {

namespace {

/// The packages that hold the file @p path, as dpkg-query lists them in @p output; empty when none of its
/// lines is about that very file.
QString packagesOf(const QString &path, const QString &output)
{
    const QString end = u": "_s + path;
    for (const QString &line : output.split(u'\n')) {
        if (line.endsWith(end) && !line.startsWith(u"diversion by "))
            return line.chopped(end.size());
    }
    return {};
}

} // namespace

UpdateCheck::UpdateCheck(Desktop &desktop, AlertSheets &alerts, DelayedCalls &delayedCalls)
    : m_desktop(desktop), m_alerts(alerts), m_delayedCalls(delayedCalls)
{
}

void UpdateCheck::begin()
{
    if (!std::exchange(m_isUnderWay, true))
        askForSoftwareCentre();
}

void UpdateCheck::ask(const QString &program, const QStringList &arguments, Answered answered)
{
    auto *process = new QProcess(this);
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(u"LC_ALL"_s, u"C"_s);
    process->setProcessEnvironment(environment);
    process->setStandardInputFile(QProcess::nullDevice());
    const auto end = [process, answered = std::move(answered)](const Result<Answer> &answer) {
        process->deleteLater();
        answered(answer);
    };
    connect(process, &QProcess::finished, this,
            [process, end, program](int status, QProcess::ExitStatus exitStatus) {
                if (exitStatus == QProcess::NormalExit)
                    end(Answer{status, QString::fromLocal8Bit(process->readAllStandardOutput())});
                else
                    end(Error{Error::Kind::NotDone, {}, tr("%1 did not answer.").arg(program)});
            });
    connect(process, &QProcess::errorOccurred, this, [end, program](QProcess::ProcessError error) {
        if (error == QProcess::FailedToStart)
            end(Error{Error::Kind::Missing, {}, tr("%1 is not installed.").arg(program)});
    });
    m_delayedCalls.after(patience, process, [process] { process->kill(); });
    process->start(program, arguments);
}

/// That something was started to open the address says nothing of whether it found a program for it; so that
/// is asked before.
void UpdateCheck::askForSoftwareCentre()
{
    ask(u"xdg-mime"_s, {u"query"_s, u"default"_s, u"x-scheme-handler/appstream"_s},
        [this](const Result<Answer> &handler) {
            const bool isThere = handler && handler->status == 0 && !handler->output.trimmed().isEmpty();
            if (isThere && m_desktop.openSoftwareCentre())
                m_isUnderWay = false;
            else
                askForPackage();
        });
}

void UpdateCheck::askForPackage()
{
    ask(u"dpkg-query"_s, {u"--search"_s, QCoreApplication::applicationFilePath()},
        [this](const Result<Answer> &packages) {
            m_isUnderWay = false;
            tell(packages);
        });
}

void UpdateCheck::tell(const Result<Answer> &packages)
{
    static constexpr int foundNone = 1; // dpkg-query's exit status.
    const QString path = QCoreApplication::applicationFilePath();
    const QString names = packages ? packagesOf(path, packages->output) : QString();
    const bool isKnown = packages ? packages->status <= foundNone : packages.isError(Error::Kind::Missing);
    const QString byPackage =
        tr("A package is updated together with the system, by the desktop's updates or by “sudo apt update” "
           "and “sudo apt upgrade”; one that was installed from a file, by installing a newer file.");
    const QString bySource =
        tr("What was built from source is updated by building and installing a newer source.");

    Alert alert{.name = u"updatesSheet"_s};
    if (!names.isEmpty()) {
        alert.message = tr("Quillon %1 was installed by the Debian package “%2”");
        alert.message = alert.message.arg(application_info::version, names);
        alert.informativeText = byPackage;
    } else if (isKnown) {
        alert.message = tr("Quillon %1 was not installed by a Debian package").arg(application_info::version);
        alert.informativeText = tr("The program is %1.").arg(path) + u' ' + bySource;
    } else {
        alert.message = tr("How Quillon %1 was installed could not be found out");
        alert.message = alert.message.arg(application_info::version);
        alert.informativeText = (packages ? tr("dpkg-query failed.") : packages.error().reason) + u' ' +
                                byPackage + u' ' + bySource;
    }
    alert.informativeText += u' ' + tr("The newest version stands at %1").arg(application_info::webPage);
    m_alerts.show(SheetWindow::Main, alert);
}

} // namespace quillon
