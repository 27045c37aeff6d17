#include "shell/workbench.h"

#include "sites/deleted_titles_window.h"
#include "sites/preferences_window.h"

namespace quillon {

Workbench::Workbench()
{
    m_alerts.setWidget(SheetWindow::Main, &m_window);
    QObject::connect(
        &m_preferences, &PreferencesController::showPreferences, &m_window, [this] { openPreferences(); },
        Qt::SingleShotConnection);
    QObject::connect(
        &m_deleted, &DeletedTitles::showWindow, &m_window, [this] { openDeletedTitles(); },
        Qt::SingleShotConnection);
    QObject::connect(&m_window, &MainWindow::closed, &m_submission, &SubmissionOpener::close);
    QObject::connect(&m_window, &MainWindow::submissionRequested, &m_siteJump, &SiteJump::go);
    QObject::connect(&m_window, &MainWindow::closed, &m_edits, &EditHistory::store);
    QObject::connect(&m_window, &MainWindow::closed, &m_manual, &ManualOpener::close);
    QObject::connect(&m_window, &MainWindow::manualRequested, &m_manual, &ManualOpener::open);
    QObject::connect(&m_window, &MainWindow::updatesRequested, &m_updates, &UpdateCheck::begin);
    QObject::connect(&m_instance, &SingleInstance::requested, &m_requests, &PendingRequests::take);
    QObject::connect(&m_titles, &TitleCommands::openWebAddress, &m_window,
                     [this](const QString &address) { m_desktop.openWebAddress(QUrl(address)); });

    m_toolbar.awakeFromNib();
    m_editor.awakeFromNib();      // Before the overview, whose selection it is to hear of.
    m_preferences.awakeFromNib(); // Likewise, for the overview asks for the catalogue.
    m_overview.awakeFromNib();
}

void Workbench::openPreferences()
{
    auto *window = new PreferencesWindow(m_preferences, &m_window);
    m_alerts.setWidget(SheetWindow::Preferences, window);
    window->open(); // From now on it opens by itself.
}

void Workbench::openDeletedTitles()
{
    auto *window = new DeletedTitlesWindow(m_deleted, &m_window);
    m_alerts.setWidget(SheetWindow::DeletedTitles, window);
    window->open(); // Likewise.
}

} // namespace quillon
