#include "submission/web_engine_profile.h"

#include "platform/web_address.h"
#include "submission/web_engine_page.h"

#include <QFile>
#include <QPointer>
#include <QWebEngineCookieStore>
#include <QWebEngineDownloadRequest>
#include <QWebEngineProfile>
#include <QWebEngineSettings>

#include <array>
#include <utility>

using namespace Qt::StringLiterals;

namespace quillon {

namespace {

using Settings = QWebEngineSettings;

/// What pages may do, as far as it is not as the engine has it.
constexpr std::array<std::pair<Settings::WebAttribute, bool>, 13> pageSettings = {{
    {Settings::JavascriptCanOpenWindows, false}, // But for what the author presses.
    {Settings::AllowWindowActivationFromJavaScript, false},
    {Settings::JavascriptCanAccessClipboard, false},
    {Settings::JavascriptCanPaste, false},
    {Settings::LocalContentCanAccessFileUrls, false},
    {Settings::LocalContentCanAccessRemoteUrls, false},
    {Settings::FullScreenSupportEnabled, false},
    {Settings::PluginsEnabled, false},
    {Settings::PdfViewerEnabled, false},
    {Settings::NavigateOnDropEnabled, false},
    {Settings::ErrorPageEnabled, false},         // Ours is shown.
    {Settings::FocusOnNavigationEnabled, false}, // The table of sites keeps the focus.
    {Settings::PlaybackRequiresUserGesture, true},
}};

/// The first longestShownText bytes of the file at @p path, as text.
QString beginningOf(const QString &path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? QString::fromUtf8(file.read(longestShownText)) : QString();
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

std::unique_ptr<QWebEngineProfile> newWebEngineProfile(const QString &folder)
{
    auto profile = std::make_unique<QWebEngineProfile>(u"Quillon"_s);
    profile->setPersistentStoragePath(folder);
    profile->setCachePath(folder + u"/cache"_s);
    profile->setHttpCacheType(QWebEngineProfile::MemoryHttpCache);
    for (const auto &[attribute, isOn] : pageSettings)
        profile->settings()->setAttribute(attribute, isOn);
    // Else a page could start other programs.
    profile->settings()->setUnknownUrlSchemePolicy(Settings::DisallowUnknownUrlSchemes);
    profile->cookieStore()->setCookieFilter(
        [](const QWebEngineCookieStore::FilterRequest &request) { return !request.thirdParty; });
    new Downloads(*profile);
    return profile;
}

Downloads::Downloads(QWebEngineProfile &profile) : QObject(&profile)
{
    connect(&profile, &QWebEngineProfile::downloadRequested, this, &Downloads::fetch);
}

void Downloads::fetch(QWebEngineDownloadRequest *request)
{
    auto *page = qobject_cast<WebEnginePage *>(request->page());
    const auto navigation = page ? page->navigationTo(request->url()) : std::nullopt;
    if (!navigation || request->isSavePageDownload() || !m_folder.isValid()) {
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
    if (!isTextType(request->mimeType())) {
        // Its size is all that is waited for, and servers need not tell it.
        if (request->totalBytes() > 0 || request->receivedBytes() >= longestShownText ||
            request->isFinished())
            finish(request, asker, {});
    } else if (request->isFinished()) {
        finish(request, asker, beginningOf(path));
    } else if (request->receivedBytes() >= longestShownText) {
        // This is what the engine calls the file until it is complete.
        if (const QString text = beginningOf(path + u".download"_s); !text.isEmpty())
            finish(request, asker, text);
    }
}

void Downloads::finish(QWebEngineDownloadRequest *request, const Asker &asker, std::optional<QString> text)
{
    const QPointer page = asker.page; // The connection that holds the asker goes first.
    disconnect(request, nullptr, this, nullptr);
    OfferedFile file{request->suggestedFileName(),
                     request->mimeType(),
                     unmistakableAddress(request->url()),
                     {},
                     std::move(text)};
    if (request->isFinished())
        file.size = request->receivedBytes();
    else if (request->totalBytes() > 0)
        file.size = request->totalBytes();
    discard(request);
    if (page)
        Q_EMIT page->fileOffered(file);
}

} // namespace quillon
