#pragma once

#include "submission/browser.h"
#include "submission/download_page.h"

#include <QObject>
#include <QPointer>
#include <QWebEnginePage>

#include <optional>

class QWebEngineLoadingInfo;

namespace quillon {

class WebEnginePage;

/**
 * What the main frame of one browser loads, from the address to the end or the failure.
 *
 * Two kinds of page are the program's own: what loadHtml() is given, and what is shown instead of a file that
 * is offered for download; reload() of one of them loads its address.
 */
class WebEngineLoading : public QObject
{
    Q_OBJECT
public:
    using QObject::QObject;

    /// Reports of the main frame go to @p delegate.
    void setDelegate(BrowserDelegate *delegate) { m_delegate = delegate; }

    /// From now on all is about @p page, which is empty; nothing more is told of the one before.
    void setPage(WebEnginePage &page);

    /// @p url may lack its scheme, as people type it. What is no web address fails.
    void loadUrl(const QString &url);
    /// Content that the engine finds too long, some 2 MB, is a failed load.
    void loadHtml(const QString &html, const QString &baseUrl);
    void reload();

    /// Fails @p address for @p reason, as if it could not be loaded.
    void refuse(const QString &address, const QString &reason);

    /// The author has the page's process ended, which fails the page.
    void processEnds() { m_isEnding = true; }

    /// How much of the page is there, from 0.0 to 1.0.
    [[nodiscard]] double progress() const { return m_progress; }
    /// The address of the main frame, as nobody can mistake it; that of one of the program's own pages as it
    /// was given.
    [[nodiscard]] QString address() const { return m_address; }
    /// The server of the page on show, as nobody can mistake it; empty for an empty page or one of the
    /// program's own without an address.
    [[nodiscard]] QString host() const;
    [[nodiscard]] bool isLoading() const { return m_isLoading; }

Q_SIGNALS:
    /// address() is another one, also when a script of the page says so, or a load has begun or ended.
    void stateChanged();
    /// A load failed, and the page is not one of the program's own.
    void failed(const QString &description);
    /// The main frame goes elsewhere, or its process has ended.
    void documentGoes();
    /// The document that it went to is there.
    void documentCame();
    /// What was told of the load before no longer holds.
    void noticeOutdated();

private:
    void loadingChanged(const QWebEngineLoadingInfo &info);
    void progressChanged(int percent);
    void navigationAccepted(const QUrl &url);
    void processEnded(QWebEnginePage::RenderProcessTerminationStatus status);
    void begin(const QUrl &url, const QString &address);
    void end();
    void fail(const QString &description);
    void failLater(const QString &description);
    void failUnlessPageHasContent(int httpStatus);
    void addressChanged(const QUrl &url);
    void showFile(const OfferedFile &file);
    void showFileText();

    QPointer<WebEnginePage> m_page;
    BrowserDelegate *m_delegate = nullptr;
    QString m_address;
    std::optional<QString> m_ownPageAddress; ///< That of the page that loadHtml() was given last.
    std::optional<QString> m_fileText;       ///< To be put into the page when it is there.
    double m_progress = 0;
    bool m_isLoading = false;
    bool m_showsOwnPage = false;
    bool m_isEnding = false; ///< Of processEnds().
    int m_loads = 0;         ///< Number of the load that is under way or was the last.
};

} // namespace quillon
