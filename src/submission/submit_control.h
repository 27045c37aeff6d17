#pragma once

#include "platform/result.h"
#include "submission/browser.h"
#include "submission/default_sites.h"
#include "submission/field_copy.h"
#include "submission/page_load.h"
#include "submission/page_questions.h"
#include "submission/submission_sites.h"

#include <QObject>

#include <memory>
#include <optional>

namespace quillon {

/// The submission window without its screen: brings together its sites, the page of the selected one, what
/// pages ask, the marks and the field copy panel.
class SubmitControl : public QObject
{
    Q_OBJECT
public:
    /// What the window is made of; all must outlive the control.
    struct Parts
    {
        Browser &qnWebView;
        Browser &popUpWebView; ///< Takes every page that asks for a window of its own.
        AlertSheets &alerts;
        Desktop &desktop;
        DelayedCalls &delayedCalls;
    };

    explicit SubmitControl(const Parts &parts, QObject *parent = nullptr);
    ~SubmitControl() override;

    /// Builds the process's table of default sites, once.
    static void setDefaultSites() { quillon::setDefaultSites(); }

    /// Begins to observe. Once, before the window is first opened.
    void awakeFromNib();

    /// Reads the catalogue and the selected title's marks anew. As long as no mark was set or removed in this
    /// run, the first site is selected and its page loaded. The selection is kept by the site's name and
    /// given up when the site is gone.
    void loadSitesList();

    /// The site in @p row was selected, -1 for none: loads its page. The site that is selected already stays
    /// as it is.
    void tableViewSelectionDidChange(int row);

    /// Goes to @p site as if the author selected it; nothing when it is not in the list.
    void goToSite(const QString &site);

    /// The title that was submitted is selected no more: from now on there is nothing to mark or to paste.
    void titleIsGone();

    /// Marks the selected site as submitted, or takes its mark away; nothing unless canMark().
    void markSubmitted();
    void removeMark();
    /// Whether a site and a title are selected, and the title's marks are known.
    [[nodiscard]] bool canMark() const { return m_title && !m_marksError && m_sites.selectedRow() >= 0; }

    /// What the author cannot do now, or what became of the last mark if it is not as it should be, in plain
    /// sentences; empty when nothing is in the way.
    [[nodiscard]] QString hindrance() const;
    /// The same of pages, as long as there is a title; none is loaded while the process takes the window for
    /// closed.
    [[nodiscard]] QString whyNoPages() const;

    void closePopUpWindowAction() { Q_EMIT closePopUpWindow(); }
    void windowWillClose();

    /// The title whose marks and values are on show; none when it is gone.
    [[nodiscard]] const std::optional<QString> &title() const { return m_title; }
    [[nodiscard]] SubmissionSites &sites() { return m_sites; }
    [[nodiscard]] PageLoad &pageLoad() { return m_pageLoad; }
    [[nodiscard]] PageQuestions &questions() { return m_questions; }
    [[nodiscard]] FieldCopyPanel &fieldCopyPanel() { return m_fieldCopyPanel; }
    /// Whether a rebuilt list may select the first site and load it.
    [[nodiscard]] bool reloadWebView() const { return m_reloadWebView; }

Q_SIGNALS:
    /// canMark(), hindrance() or whyNoPages() may be another one.
    void hindranceChanged();
    /// The author has selected a site, or was led to one.
    void siteChosen();
    /// The mark of the selected site was set, or removed.
    void markChanged(bool isMarked);
    /// Make sure that the drawer with the sites is open.
    void openSitesDrawer();
    /// Bring the window of popUpWebView to the front, or hide it.
    void openPopUpWindow();
    void closePopUpWindow();

private:
    class Reports;

    void takeTitle();
    void showSite();
    void showChosen();
    void changeMark(Result<> (*change)(const QString &site), bool isMarkedThen);

    Parts m_parts;
    SubmissionSites m_sites;
    PageLoad m_pageLoad;
    PageQuestions m_questions;
    FieldCopyPanel m_fieldCopyPanel;
    std::unique_ptr<Reports> m_reports;
    std::unique_ptr<Reports> m_popUpReports;
    std::optional<QString> m_title;    ///< The one whose marks and values are on show.
    std::optional<Error> m_marksError; ///< Why the title's marks are not known.
    QString m_refusal;                 ///< Why the last mark is not set, removed or safe.
    bool m_reloadWebView = false;
};

} // namespace quillon
