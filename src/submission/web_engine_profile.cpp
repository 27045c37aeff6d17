#include "submission/web_engine_profile.h"

#include "platform/web_address.h"
#include "submission/web_engine_downloads.h"

#include <QFile>
#include <QStandardPaths>
#include <QWebEngineCookieStore>
#include <QWebEngineProfile>
#include <QWebEngineSettings>
#include <QWebEngineUrlRequestInterceptor>

#include <algorithm>
#include <array>
#include <utility>

using namespace Qt::StringLiterals;

namespace quillon {

namespace {

using Settings = QWebEngineSettings;

/// What pages may do, as far as it is not as the engine has it.
constexpr std::array<std::pair<Settings::WebAttribute, bool>, 14> pageSettings = {{
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
    {Settings::WebRTCPublicInterfacesOnly, true}, // Else the local network hears of the author, too.
}};

/// The kinds of address that pages fetch from.
constexpr std::array<QStringView, 7> pageSchemes = {u"http", u"https", u"ws",   u"wss",
                                                    u"data", u"blob",  u"about"};

/// Lets pages fetch nothing from inside this program, and no script that would go on working without a page.
class RequestFilter final : public QWebEngineUrlRequestInterceptor
{
public:
    using QWebEngineUrlRequestInterceptor::QWebEngineUrlRequestInterceptor;
    void interceptRequest(QWebEngineUrlRequestInfo &info) override
    {
        const QString scheme = info.requestUrl().scheme();
        if (std::ranges::find(pageSchemes, QStringView(scheme)) == pageSchemes.end() ||
            info.resourceType() == QWebEngineUrlRequestInfo::ResourceTypeServiceWorker)
            info.block(true);
    }
};

/// Lets nothing through but what a visit asks for itself.
class VisitFilter final : public QWebEngineUrlRequestInterceptor
{
public:
    using QWebEngineUrlRequestInterceptor::QWebEngineUrlRequestInterceptor;
    void interceptRequest(QWebEngineUrlRequestInfo &info) override
    {
        const auto type = info.resourceType();
        const bool isWanted = type == QWebEngineUrlRequestInfo::ResourceTypeMainFrame ||
                              type == QWebEngineUrlRequestInfo::ResourceTypeXhr; // Pages have no scripts.
        info.block(!isWanted || !hasWebScheme(info.requestUrl()));
    }
};

/// While it lives, the engine takes a folder for that of all programs' data. A profile that is made writes
/// there at once, before it can be told another one: by what it writes a site knows the author's devices
/// again. The variable is never taken out again, since a thread may be reading the variables meanwhile.
class DataHome
{
public:
    explicit DataHome(const QString &folder) { qputenv(variable, QFile::encodeName(folder)); }
    ~DataHome() { qputenv(variable, QFile::encodeName(m_before)); }
    Q_DISABLE_COPY_MOVE(DataHome)

private:
    static constexpr const char *variable = "XDG_DATA_HOME";
    QString m_before = QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation);
};

void restrict(QWebEngineProfile &profile)
{
    for (const auto &[attribute, isOn] : pageSettings)
        profile.settings()->setAttribute(attribute, isOn);
    // Else a page could start other programs.
    profile.settings()->setUnknownUrlSchemePolicy(Settings::DisallowUnknownUrlSchemes);
}

} // namespace

std::unique_ptr<QWebEngineProfile> newVisitProfile()
{
    auto profile = std::make_unique<QWebEngineProfile>();
    profile->setHttpCacheType(QWebEngineProfile::MemoryHttpCache);
    restrict(*profile);
    profile->settings()->setAttribute(Settings::JavascriptEnabled, false);
    profile->cookieStore()->setCookieFilter(
        [](const QWebEngineCookieStore::FilterRequest &) { return false; });
    profile->setUrlRequestInterceptor(new VisitFilter(profile.get()));
    return profile;
}

std::unique_ptr<QWebEngineProfile> newWebEngineProfile(const QString &folder)
{
    const DataHome dataHome(folder);
    auto profile = std::make_unique<QWebEngineProfile>(u"Quillon"_s);
    profile->setPersistentStoragePath(folder);
    profile->setCachePath(folder + u"/cache"_s);
    profile->setHttpCacheType(QWebEngineProfile::MemoryHttpCache);
    restrict(*profile);
    profile->cookieStore()->setCookieFilter(
        [](const QWebEngineCookieStore::FilterRequest &request) { return !request.thirdParty; });
    profile->setUrlRequestInterceptor(new RequestFilter(profile.get()));
    new Downloads(*profile);
    return profile;
}

} // namespace quillon
