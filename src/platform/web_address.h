#pragma once

#include <QString>
#include <QUrl>

/// Addresses of the web: which are, and how one is shown so that nobody takes its site for another.
namespace quillon {

/// Whether @p address is one of the web, with a server's name in it: http, https or ftp, and nothing else.
bool isWebAddress(const QUrl &address);

/// Whether the scheme of @p address alone is one of the web.
bool hasWebScheme(const QUrl &address);

/// The server that @p address names, as the network asks for it: letters from outside ASCII in their encoded
/// form ("xn--…"), so that none looks like another, and the port unless it is the scheme's usual one. Empty
/// for what is no web address.
QString unmistakableHost(const QUrl &address);

/// @p address in ASCII alone: what would turn the direction of writing, or look like another letter, is
/// encoded.
QString unmistakableAddress(const QUrl &address);

} // namespace quillon
