#include "submission/load_errors.h"

#include <algorithm>
#include <array>

using namespace Qt::StringLiterals;

namespace quillon {

namespace {

/// A name of the engine's for a failure, and a sentence for it.
struct LoadError
{
    QStringView name;
    QStringView sentence;
};

// Fixed English: what is found on a visit is kept in the journal, and scripts read it there.
constexpr std::array<LoadError, 15> loadErrors = {{
    {u"net::ERR_NAME_NOT_RESOLVED", u"There is no server of this name."},
    {u"net::ERR_NAME_RESOLUTION_FAILED", u"The server's name could not be looked up."},
    {u"net::ERR_INTERNET_DISCONNECTED", u"This computer is not connected to the Internet."},
    {u"net::ERR_NETWORK_CHANGED", u"The connection to the Internet has changed."},
    {u"net::ERR_CONNECTION_REFUSED", u"The server refused the connection."},
    {u"net::ERR_CONNECTION_RESET", u"The server broke off the connection."},
    {u"net::ERR_CONNECTION_CLOSED", u"The server closed the connection."},
    {u"net::ERR_CONNECTION_TIMED_OUT", u"The server did not answer in time."},
    {u"net::ERR_TIMED_OUT", u"The server did not answer in time."},
    {u"net::ERR_ADDRESS_UNREACHABLE", u"The server cannot be reached."},
    {u"net::ERR_EMPTY_RESPONSE", u"The server sent nothing."},
    {u"net::ERR_CONTENT_LENGTH_MISMATCH", u"The server sent only a part of the page."},
    {u"net::ERR_INCOMPLETE_CHUNKED_ENCODING", u"The server sent only a part of the page."},
    {u"net::ERR_TOO_MANY_REDIRECTS", u"The page leads from address to address without end."},
    {u"net::ERR_INVALID_URL", u"The address is not valid."},
}};

constexpr QStringView certificateErrors = u"net::ERR_CERT_";
constexpr QStringView certificateSentence = u"The server's certificate cannot be trusted.";

} // namespace

QString loadErrorDescription(const QString &engineDescription)
{
    const auto known = std::ranges::find(loadErrors, QStringView(engineDescription), &LoadError::name);
    if (known != loadErrors.end())
        return u"%1 (%2)"_s.arg(known->sentence, engineDescription);
    if (engineDescription.startsWith(certificateErrors))
        return u"%1 (%2)"_s.arg(certificateSentence, engineDescription);
    return engineDescription;
}

} // namespace quillon
