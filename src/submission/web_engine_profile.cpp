#include "submission/web_engine_profile.h"

#include "platform/settings.h"
#include "platform/web_address.h"
#include "submission/web_engine_page.h"

#include <QCoreApplication>
#include <QFile>
#include <QFileInfo>
#include <QLoggingCategory>
#include <QPointer>
#include <QWebEngineCookieStore>
#include <QWebEngineDownloadRequest>
#include <QWebEngineProfile>
#include <QWebEngineSettings>

#include <algorithm>
#include <array>
#include <cstdio>
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

constexpr const char *debuggingVariable = "QTWEBENGINE_REMOTE_DEBUGGING";
constexpr const char *sandboxVariable = "QTWEBENGINE_DISABLE_SANDBOX";
constexpr const char *switchesVariable = "QTWEBENGINE_CHROMIUM_FLAGS";

/// The engine's switches that take the sandbox, or a part of it, away.
constexpr std::array<QByteArrayView, 4> sandboxSwitches = {
    "no-sandbox", "single-process", "disable-seccomp-filter-sandbox", "disable-namespace-sandbox"};

/// The switches in the environment, without the quotation marks that may stand anywhere in them.
QByteArray environmentSwitches()
{
    return qgetenv(switchesVariable).replace('"', "");
}

void leaveOut(const char *variable)
{
    qunsetenv(variable);
    std::fprintf(stderr, "quillon: %s is ignored: it would open web pages to other programs.\n", variable);
}

} // namespace

void prepareWebEngine()
{
    QCoreApplication::setAttribute(Qt::AA_ShareOpenGLContexts);
    // How the engine was built and is drawn, in twenty lines, on every start of it.
    QLoggingCategory::setFilterRules(u"qt.webenginecontext.info=false\nqt.webenginecontext.debug=false"_s);
}

void closeRemoteDebugging()
{
    if (qEnvironmentVariableIsSet(debuggingVariable))
        leaveOut(debuggingVariable);
    if (environmentSwitches().contains("remote-debugging"))
        leaveOut(switchesVariable);
}

QString sandboxWarning(bool isRoot)
{
    if (isRoot)
        return u"running as root, so the sandbox of web pages is off."_s;
    const QByteArray switches = environmentSwitches();
    const bool isSwitchedOff = qEnvironmentVariableIsSet(sandboxVariable) ||
                               std::ranges::any_of(sandboxSwitches, [&switches](QByteArrayView each) {
                                   return switches.contains(each);
                               });
    return isSwitchedOff ? u"an environment variable has switched the sandbox of web pages off."_s
                         : QString();
}

QString webEngineFolder()
{
    return QFileInfo(settings().fileName()).path() + u"/Quillon-web"_s;
}

std::unique_ptr<QWebEngineProfile> newWebEngineProfile(const QString &folder)
{
    closeRemoteDebugging();
    if (const QString warning = sandboxWarning(); !warning.isEmpty())
        std::fprintf(stderr, "quillon: %s\n", qPrintable(warning));
    if (geteuid() == 0)
        qputenv(sandboxVariable, "1");
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
