#include "shell/pending_requests.h"

#include "overview/title_commands.h"
#include "shell/main_window.h"
#include "store/process_state.h"

#include <utility>

using namespace Qt::StringLiterals;

namespace quillon {

PendingRequests::PendingRequests(MainWindow &window, OverviewController &overview, TitleCommands &titles)
    : m_window(window), m_overview(overview), m_titles(titles)
{
    // Later, for both are told of in the midst of what makes way.
    connect(&overview.fileMenu(), &FileMenu::changed, this, &PendingRequests::goOn, Qt::QueuedConnection);
    connect(&window, &MainWindow::blockedChanged, this, &PendingRequests::goOn, Qt::QueuedConnection);
}

void PendingRequests::take(const StartRequest &request)
{
    if (!request.activationToken.isEmpty())
        qputenv("XDG_ACTIVATION_TOKEN", request.activationToken.toUtf8()); // Where the toolkit looks for it.
    m_window.bringToFront();
    m_files += request.files;
    m_files.removeDuplicates(); // An author who sees nothing happen opens the file once more.
    m_asksForTitle = m_asksForTitle || request.asksForTitle;
    goOn();
}

void PendingRequests::goOn()
{
    if (m_files.isEmpty() && !m_asksForTitle)
        return;
    const bool isReady = obstacle().isEmpty();
    m_window.showWaiting(isReady ? QString() : sentence());
    if (!isReady)
        return;
    m_titles.processImportedFile(std::exchange(m_files, {}));
    if (std::exchange(m_asksForTitle, false))
        m_titles.newSoftwareButtonAction();
}

QString PendingRequests::sentence() const
{
    QString what = tr("The name of a new title is asked for");
    if (!m_asksForTitle)
        what =
            m_files.size() == 1 ? tr("1 file is imported") : tr("%1 files are imported").arg(m_files.size());
    return what + u' ' + obstacle();
}

QString PendingRequests::obstacle() const
{
    if (m_window.isBlocked())
        return tr("as soon as what is open over this window is closed.");
    if (m_overview.fileMenu().isEnabled(FileMenu::Import))
        return {};
    return mwqnWOSi78tgsda ? tr("as soon as the overview is shown again (Ctrl+1).")
                           : tr("as soon as the submission window is closed.");
}

} // namespace quillon
