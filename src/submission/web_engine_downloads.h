#pragma once

#include "submission/download_page.h"

#include <QDir>
#include <QObject>
#include <QPointer>

#include <optional>

class QWebEngineDownloadRequest;
class QWebEngineProfile;

namespace quillon {

class WebEnginePage;

/// Fetches what pages of a profile offer for download as far as it can be shown, and nothing into a folder of
/// the author's. Only what stands in place of a page is fetched, and only until the author goes elsewhere; a
/// frame, or a script, does not take the place of a form.
class Downloads : public QObject
{
    Q_OBJECT
public:
    explicit Downloads(QWebEngineProfile &profile);
    ~Downloads() override;

private:
    void fetch(QWebEngineDownloadRequest *request);
    /// A page's navigation that ended in a file; the page may be gone before the file has come.
    struct Asker
    {
        QPointer<WebEnginePage> page;
        int navigation;
    };
    void look(QWebEngineDownloadRequest *request, const Asker &asker);
    void finish(QWebEngineDownloadRequest *request, const Asker &asker, std::optional<QString> text);

    QDir m_folder; ///< Among what pages store; it goes with this object.
    int m_count = 0;
};

} // namespace quillon
