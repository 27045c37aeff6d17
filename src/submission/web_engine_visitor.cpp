#include "submission/web_engine_visitor.h"

#include "submission/web_engine_page.h"
#include "submission/web_engine_profile.h"

#include <QDir>
#include <QFile>
#include <QWebEngineLoadingInfo>
#include <QWebEngineProfile>

#include <chrono>
#include <utility>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace quillon {

namespace {

constexpr std::chrono::milliseconds visitPatience = 30s;
constexpr std::chrono::milliseconds untilSettled = 500ms;
/// How long a load that was given up may take to turn out to be a file's.
constexpr std::chrono::milliseconds untilOffered = 3s;

constexpr int statusDone = 200; ///< The engine tells of other statuses only.

const QString timedOut = u"net::ERR_TIMED_OUT"_s;

/// The document's type, and the size of the picture that it is.
const QString lookScript = uR"((() => {
    const picture = document.contentType.startsWith('image/') && document.images[0];
    return [document.contentType, picture ? picture.naturalWidth : -1, picture ? picture.naturalHeight : -1];
})())"_s;

/// The bytes of the document, a character each, as the server has them.
const QString readScript = uR"((() => {
    try {
        const request = new XMLHttpRequest();
        request.open('GET', location.href, false);
        request.overrideMimeType('text/plain; charset=x-user-defined');
        request.send();
        return request.responseText.slice(0, %1);
    } catch (error) {
        return null;
    }
})())"_s;

/// What readScript gives, as bytes: those beyond ASCII come from a private area.
QByteArray bytesOf(const QString &characters)
{
    QByteArray bytes;
    bytes.reserve(characters.size());
    for (const QChar each : characters)
        bytes.append(char(each.unicode() & 0xff));
    return bytes;
}

/// What is known of @p file without its text.
Visit seen(const QWebEngineDownloadRequest &file)
{
    Visit visit{.reached = file.url().toString(QUrl::FullyEncoded),
                .status = statusDone,
                .contentType = file.mimeType(),
                .isFile = true};
    if (file.state() == QWebEngineDownloadRequest::DownloadCompleted)
        visit.fileSize = file.receivedBytes();
    else if (file.totalBytes() > 0)
        visit.fileSize = file.totalBytes();
    return visit;
}

/// What the paths of folders for what is offered begin with, in @p folder, which is made.
QString placesIn(const QString &folder)
{
    QDir().mkpath(folder);
    return folder + u"/offered-"_s;
}

} // namespace

WebEngineVisitor::WebEngineVisitor(const QString &folder)
    : m_profile(newVisitProfile()), m_folder(placesIn(folder))
{
    connect(m_profile.get(), &QWebEngineProfile::downloadRequested, this, &WebEngineVisitor::offered);
    m_patience.setSingleShot(true);
    m_settling.setSingleShot(true);
    connect(&m_patience, &QTimer::timeout, this, [this] { fail(timedOut); });
    connect(&m_settling, &QTimer::timeout, this, &WebEngineVisitor::look);
}

WebEngineVisitor::~WebEngineVisitor() = default;

void WebEngineVisitor::visit(const VisitRequest &request, Visited visited)
{
    stop();
    m_request = request;
    m_visited = std::move(visited);
    m_page = std::make_unique<WebEnginePage>(m_profile, nullptr);
    connect(m_page.get(), &QWebEnginePage::loadingChanged, this, &WebEngineVisitor::loadingChanged);
    m_patience.start(visitPatience);
    m_page->load(QUrl::fromUserInput(request.address));
}

void WebEngineVisitor::stop()
{
    m_visited = {};
    m_lastFailure.clear();
    m_patience.stop();
    m_settling.stop();
    dropFile();
    if (!m_page)
        return;
    m_page->disconnect(this);
    m_page.release()->giveUp(); // It may be what has called.
}

void WebEngineVisitor::loadingChanged(const QWebEngineLoadingInfo &info)
{
    m_settling.stop();
    m_lastFailure.clear();
    switch (info.status()) {
    case QWebEngineLoadingInfo::LoadStartedStatus:
        break;
    case QWebEngineLoadingInfo::LoadSucceededStatus:
        m_settling.start(untilSettled);
        break;
    case QWebEngineLoadingInfo::LoadStoppedStatus:
        m_lastFailure = u"net::ERR_ABORTED"_s;
        m_settling.start(untilOffered);
        break;
    case QWebEngineLoadingInfo::LoadFailedStatus:
        if (info.errorDomain() == QWebEngineLoadingInfo::HttpStatusCodeDomain)
            tell({.reached = info.url().toString(QUrl::FullyEncoded), .status = info.errorCode()});
        else
            fail(info.errorString());
        break;
    }
}

void WebEngineVisitor::offered(QWebEngineDownloadRequest *file)
{
    if (!m_page || file->page() != m_page.get()) {
        file->cancel();
        return;
    }
    m_settling.stop();
    // The folder goes when what pages have stored is cleared; without it the author's own downloads would get
    // the file.
    if (!m_folder.isValid() || !QDir().mkpath(m_folder.path())) {
        file->cancel();
        tell(seen(*file));
        return;
    }
    m_file = file;
    file->setDownloadDirectory(m_folder.path());
    const auto take = [this, file] { this->take(*file); };
    connect(file, &QWebEngineDownloadRequest::receivedBytesChanged, this, take);
    connect(file, &QWebEngineDownloadRequest::totalBytesChanged, this, take);
    connect(file, &QWebEngineDownloadRequest::isFinishedChanged, this, take);
    file->accept();
}

/// Waits until the size of @p file is known, or all of it is there when it is wanted; no more is fetched.
void WebEngineVisitor::take(const QWebEngineDownloadRequest &file)
{
    const bool isComplete = file.state() == QWebEngineDownloadRequest::DownloadCompleted;
    if (file.isFinished() && !isComplete) {
        fail(file.interruptReasonString());
        return;
    }
    const bool isTold = file.totalBytes() > 0 && !m_request.wantsText;
    if (!isComplete && !isTold && file.receivedBytes() < Visit::longestText)
        return;
    Visit visit = seen(file);
    QFile content(m_folder.filePath(file.downloadFileName()));
    if (isComplete && m_request.wantsText && content.open(QIODevice::ReadOnly))
        visit.text = content.read(Visit::longestText);
    tell(visit);
}

void WebEngineVisitor::dropFile()
{
    if (!m_file)
        return;
    m_file->disconnect(this);
    if (!m_file->isFinished())
        m_file->cancel();
    QFile::remove(m_folder.filePath(m_file->downloadFileName()));
    m_file.clear();
}

void WebEngineVisitor::look()
{
    if (!m_lastFailure.isEmpty()) {
        fail(m_lastFailure);
        return;
    }
    m_page->ask(lookScript, [this](const QVariant &answer) {
        const QVariantList parts = answer.toList();
        read({.reached = m_page->url().toString(QUrl::FullyEncoded),
              .status = statusDone,
              .contentType = parts.value(0).toString(),
              .pictureSize = QSize(parts.value(1, -1).toInt(), parts.value(2, -1).toInt())});
    });
}

void WebEngineVisitor::read(Visit visit)
{
    if (!m_request.wantsText) {
        tell(visit);
        return;
    }
    m_page->ask(readScript.arg(Visit::longestText), [this, visit](const QVariant &answer) mutable {
        if (answer.typeId() == QMetaType::QString)
            visit.text = bytesOf(answer.toString());
        tell(visit);
    });
}

void WebEngineVisitor::fail(const QString &reason)
{
    tell({.failure = reason.isEmpty() ? u"net::ERR_FAILED"_s : reason});
}

void WebEngineVisitor::tell(const Visit &visit)
{
    const Visited visited = std::exchange(m_visited, {});
    stop();
    if (visited)
        visited(visit);
}

} // namespace quillon
