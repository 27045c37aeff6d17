#include "overview/import_run.h"

#include "platform/translated_text.h"

#include <QFileInfo>

#include <utility>

using namespace Qt::StringLiterals;

namespace quillon {

using title_operations::Import;

namespace {

QString counted(qsizetype count, const QString &one, const QString &several)
{
    return count == 1 ? one : several;
}

/// What the report says below its first line.
QString informativeText(const ImportReport &report)
{
    QStringList sentences;
    if (!report.failures.isEmpty())
        sentences +=
            counted(report.failures.size(), ImportRun::tr("1 file could not be imported."),
                    ImportRun::tr("%Ln files could not be imported.", nullptr, int(report.failures.size())));
    if (report.unnamed > 0)
        sentences +=
            counted(report.unnamed, ImportRun::tr("1 file needs another name, which you will be asked for."),
                    ImportRun::tr("%Ln files need other names, which you will be asked for.", nullptr,
                                  int(report.unnamed)));
    if (report.lossy > 0 && report.total == 1)
        sentences +=
            ImportRun::tr("Some of what the file holds will be lost as soon as you select the title.");
    else if (report.lossy > 0)
        sentences += counted(
            report.lossy, ImportRun::tr("Of 1 file, something will be lost as soon as you select its title."),
            ImportRun::tr("Of %Ln files, something will be lost as soon as you select their titles.", nullptr,
                          int(report.lossy)));
    if (!report.failures.isEmpty() || report.lossy > 0)
        sentences += ImportRun::tr("The details list it.");
    if (report.kept > 0 && report.kept == report.lossy)
        sentences += ImportRun::tr("“Export Original…” in the menu “Title” gives each file back as it came.");
    return sentences.join(u' ');
}

void appendLines(const ImportReport &report, const QList<ImportReport::Line> &lines, QStringList &details)
{
    for (const auto &[file, text] : lines)
        details += report.total > 1 ? QString(file + u": " + text) : text;
}

/// Failures before losses, under headings where there are both.
QStringList details(const ImportReport &report)
{
    const bool hasBoth = !report.failures.isEmpty() && !report.losses.isEmpty();
    QStringList lines;
    if (hasBoth)
        lines += ImportRun::tr("Not imported:");
    appendLines(report, report.failures, lines);
    if (hasBoth)
        lines += {QString(), ImportRun::tr("Will be lost:")};
    appendLines(report, report.losses, lines);
    return lines;
}

} // namespace

Alert ImportReport::alert() const
{
    if (total == 1 && !failures.isEmpty())
        return {.message = failures.first().text};
    const QString message = failures.isEmpty()
                                ? translated("TitleOperations", title_operations::importSucceeded)
                                : ImportRun::tr("%L1 of %L2 files were imported").arg(imported).arg(total);
    return {.message = message, .informativeText = informativeText(*this), .details = details(*this)};
}

ImportRun::ImportRun(DelayedCalls &delayedCalls, QObject *parent)
    : QObject(parent), m_delayedCalls(delayedCalls)
{
}

ImportRun::State ImportRun::state() const
{
    if (!m_queue.isEmpty())
        return State::Reading;
    if (!mwqnIpFloc43.isEmpty())
        return State::NameAsked;
    return m_unnamed.isEmpty() ? State::Idle : State::NeedsName;
}

void ImportRun::start(const QStringList &paths)
{
    if (paths.isEmpty())
        return;
    const bool isReading = state() == State::Reading;
    m_queue += paths;
    m_report.total += paths.size();
    if (!isReading)
        readNext();
}

void ImportRun::readNext()
{
    const QString path = m_queue.takeFirst();
    take(path, title_operations::importPadFile(path), m_report);
    Q_EMIT progressed(int(m_report.total - m_queue.size()), int(m_report.total));
    if (state() == State::Reading)
        m_delayedCalls.after(std::chrono::milliseconds(0), this, [this] { readNext(); });
    else
        finish();
}

void ImportRun::take(const QString &path, const Import &import, ImportReport &report)
{
    const QString file = QFileInfo(path).fileName();
    switch (import.outcome) {
    case Import::Imported:
        ++report.imported;
        report.lossy += import.findings.isEmpty() ? 0 : 1;
        report.kept += !import.findings.isEmpty() && import.isKept ? 1 : 0;
        for (const QString &finding : import.findings)
            report.losses.append({.file = file, .text = finding});
        break;
    case Import::NeedsName:
        ++report.unnamed;
        m_unnamed.append({.path = path, .reason = import.message});
        break;
    case Import::NotPad:
    case Import::NotRead:
    case Import::NotStored:
        report.failures.append({.file = file, .text = import.message});
        break;
    }
}

void ImportRun::finish()
{
    const ImportReport report = std::exchange(m_report, {});
    if (report.imported > 0)
        Q_EMIT imported();
    Q_EMIT finished(report);
}

QString ImportRun::askForName()
{
    const auto [path, reason] = m_unnamed.takeFirst();
    mwqnIpFloc43 = path;
    return reason;
}

QString ImportRun::askedFile() const
{
    return QFileInfo(mwqnIpFloc43).fileName();
}

void ImportRun::confirm(const QString &name)
{
    const QString path = std::exchange(mwqnIpFloc43, {});
    ImportReport report{.total = 1};
    take(path, title_operations::importPadFile(path, name), report);
    if (report.imported > 0)
        Q_EMIT imported();
    Q_EMIT finished(report);
}

void ImportRun::giveUpAll()
{
    giveUp();
    m_unnamed.clear();
}

} // namespace quillon
