#include "submission/web_engine_downloads.h"

#include "platform/web_address.h"
#include "submission/web_engine_page.h"

#include <QFile>
#include <QWebEngineDownloadRequest>
#include <QWebEngineProfile>

#include <utility>

using namespace Qt::StringLiterals;

namespace quillon {

namespace {

/// The first longestShownText bytes of the file at @p path, as text; none when it cannot be read.
std::optional<QString> beginningOf(const QString &path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? std::optional(QString::fromUtf8(file.read(longestShownText)))
                                          : std::nullopt;
}

/// In bytes, as far as it is known.
std::optional<qint64> sizeOf(const QWebEngineDownloadRequest &request)
{
    if (request.state() == QWebEngineDownloadRequest::DownloadCompleted)
        return request.receivedBytes();
    return request.totalBytes() > 0 ? std::optional(request.totalBytes()) : std::nullopt;
}

/// Leaves nothing of the file on disk.
void discard(QWebEngineDownloadRequest *request)
{
    if (request->isFinished())
        QFile::remove(request->downloadDirectory() + u'/' + request->downloadFileName());
    else
        request->cancel();
}

} // namespace

Downloads::Downloads(QWebEngineProfile &profile)
    : QObject(&profile), m_folder(profile.persistentStoragePath() + u"/offered"_s)
{
    m_folder.removeRecursively(); // Of a run that was killed.
    connect(&profile, &QWebEngineProfile::downloadRequested, this, &Downloads::fetch);
}

Downloads::~Downloads()
{
    m_folder.removeRecursively();
}

void Downloads::fetch(QWebEngineDownloadRequest *request)
{
    auto *page = qobject_cast<WebEnginePage *>(request->page());
    const auto navigation = page ? page->navigationTo(request->url()) : std::nullopt;
    if (!navigation || request->isSavePageDownload() || !m_folder.mkpath(u"."_s)) {
        request->cancel();
        if (page)
            Q_EMIT page->fileRefused(request->suggestedFileName());
        return;
    }
    request->setDownloadDirectory(m_folder.path());
    request->setDownloadFileName(QString::number(++m_count));
    const auto look = [this, request, asker = Asker{page, *navigation}] { this->look(request, asker); };
    connect(request, &QWebEngineDownloadRequest::receivedBytesChanged, this, look);
    connect(request, &QWebEngineDownloadRequest::totalBytesChanged, this, look);
    connect(request, &QWebEngineDownloadRequest::isFinishedChanged, this, look);
    request->accept();
}

void Downloads::look(QWebEngineDownloadRequest *request, const Asker &asker)
{
    if (!asker.page || !asker.page->isCurrent(asker.navigation)) {
        disconnect(request, nullptr, this, nullptr);
        discard(request);
        return;
    }
    const QString path = request->downloadDirectory() + u'/' + request->downloadFileName();
    if (request->state() == QWebEngineDownloadRequest::DownloadInterrupted) {
        finish(request, asker, {});
    } else if (!isTextType(request->mimeType())) {
        // Its size is all that is waited for, and servers need not tell it.
        if (request->totalBytes() > 0 || request->receivedBytes() >= longestShownText ||
            request->isFinished())
            finish(request, asker, {});
    } else if (request->isFinished()) {
        finish(request, asker, beginningOf(path));
    } else if (request->receivedBytes() >= longestShownText) {
        // This is what the engine calls the file until it is complete.
        if (auto text = beginningOf(path + u".download"_s); text && !text->isEmpty())
            finish(request, asker, std::move(text));
    }
}

void Downloads::finish(QWebEngineDownloadRequest *request, const Asker &asker, std::optional<QString> text)
{
    const QPointer page = asker.page; // The connection that holds the asker goes first.
    disconnect(request, nullptr, this, nullptr);
    OfferedFile file{.name = request->suggestedFileName(),
                     .type = request->mimeType(),
                     .address = unmistakableAddress(request->url()),
                     .size = sizeOf(*request),
                     .text = std::move(text)};
    if (request->state() == QWebEngineDownloadRequest::DownloadInterrupted)
        file.failure = request->interruptReasonString();
    discard(request);
    if (page)
        Q_EMIT page->fileOffered(file);
}

} // namespace quillon
