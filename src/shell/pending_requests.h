#pragma once

#include "shell/start_request.h"

#include <QObject>

namespace quillon {

class MainWindow;
class OverviewController;
class TitleCommands;

/// What the program was started for, and what other starts have handed over since. It is done where the
/// author could do it: while the File menu takes imports and nothing stands over the window. Until then it
/// waits, and the status bar says for what.
class PendingRequests : public QObject
{
    Q_OBJECT
public:
    /// All must outlive it.
    PendingRequests(MainWindow &window, OverviewController &overview, TitleCommands &titles);

    /// Brings the window to the front and does what @p request asks for, now or later.
    void take(const StartRequest &request);

private:
    void goOn();
    [[nodiscard]] QString sentence() const;
    /// What the author has to do first, as the end of a sentence; empty when nothing is in the way.
    [[nodiscard]] QString obstacle() const;

    MainWindow &m_window;
    OverviewController &m_overview;
    TitleCommands &m_titles;
    QStringList m_files;
    bool m_asksForTitle = false;
};

} // namespace quillon
