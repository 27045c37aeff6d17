#pragma once

#include <QObject>
#include <QString>

namespace quillon {

class AlertSheets;
class OverviewController;
class SubmissionOpener;
class ToolbarControl;

/// Leads from anywhere to the submission window at a site: selects the title, submits it as the toolbar does,
/// and selects the site when the window is there.
class SiteJump : public QObject
{
    Q_OBJECT
public:
    /// All must outlive the jump; @p submission opens its window before the jump looks for it.
    SiteJump(OverviewController &overview, ToolbarControl &toolbar, SubmissionOpener &submission,
             AlertSheets &alerts);

    /// Goes to @p site with @p title. What the toolbar asks or refuses on the way stays so; a site that has
    /// left the catalogue is told.
    void go(const QString &title, const QString &site);

private:
    /// Whether @p title is the selected one now.
    bool select(const QString &title);
    void arrive();

    OverviewController &m_overview;
    ToolbarControl &m_toolbar;
    SubmissionOpener &m_submission;
    AlertSheets &m_alerts;
    QString m_site; ///< Where to; empty when nobody is under way.
};

} // namespace quillon
