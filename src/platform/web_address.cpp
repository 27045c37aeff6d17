#include "platform/web_address.h"

#include <algorithm>
#include <array>

namespace quillon {

namespace {

constexpr std::array<QStringView, 3> webSchemes = {u"http", u"https", u"ftp"};

} // namespace

bool hasWebScheme(const QUrl &address)
{
    return std::ranges::find(webSchemes, QStringView(address.scheme())) != webSchemes.end();
}

bool isWebAddress(const QUrl &address)
{
    return address.isValid() && hasWebScheme(address) && !address.host().isEmpty();
}

QString unmistakableHost(const QUrl &address)
{
    if (!isWebAddress(address))
        return {};
    const QUrl site = address.adjusted(QUrl::RemoveUserInfo | QUrl::RemovePath | QUrl::RemoveQuery |
                                       QUrl::RemoveFragment | QUrl::RemoveScheme);
    return site.toString(QUrl::FullyEncoded).remove(u'/');
}

QString unmistakableAddress(const QUrl &address)
{
    return address.toString(QUrl::FullyEncoded);
}

} // namespace quillon
