#pragma once

#include "submission/visitor.h"

#include <QObject>
#include <QPointer>
#include <QTemporaryDir>
#include <QTimer>
#include <QWebEngineDownloadRequest>

#include <memory>

class QWebEngineLoadingInfo;
class QWebEngineProfile;

namespace quillon {

class WebEnginePage;

/// Visits by the web engine, in a page that is in no window and keeps nothing.
class WebEngineVisitor final : public QObject, public Visitor
{
    Q_OBJECT
public:
    /// What is offered as a file is fetched to a folder in @p folder, which goes with this object. After a
    /// kill it stays until whatever is in @p folder is cleared away.
    explicit WebEngineVisitor(const QString &folder);
    ~WebEngineVisitor() override;

    void visit(const VisitRequest &request, Visited visited) override;
    void stop() override;

private:
    void loadingChanged(const QWebEngineLoadingInfo &info);
    void offered(QWebEngineDownloadRequest *file);
    void take(const QWebEngineDownloadRequest &file);
    void dropFile();
    void look();
    void read(Visit visit);
    void tell(const Visit &visit);
    void fail(const QString &reason);

    std::shared_ptr<QWebEngineProfile> m_profile;
    std::unique_ptr<WebEnginePage> m_page; ///< None when nothing is visited.
    QTemporaryDir m_folder;                ///< For what is offered as a file.
    QPointer<QWebEngineDownloadRequest> m_file;
    VisitRequest m_request;
    Visited m_visited;
    QTimer m_patience;
    QTimer m_settling; ///< A page that has loaded may lead elsewhere at once.
    QString m_lastFailure;
};

} // namespace quillon
