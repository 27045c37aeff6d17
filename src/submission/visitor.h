#pragma once

#include <QByteArray>
#include <QSize>
#include <QString>

#include <functional>
#include <optional>

namespace quillon {

/// An address that is to be visited.
struct VisitRequest
{
    QString address;
    bool wantsText = false; ///< What the server sends is wanted, up to Visit::longestText.
};

/// What came of a visit.
struct Visit
{
    static constexpr qint64 longestText = 1'000'000; ///< Bytes.

    QString reached = {}; ///< The address at the end of all redirections; empty when nothing answered.
    int status = 0;       ///< Of HTTP; 0 when nothing answered.
    QString failure = {}; ///< The engine's name for what failed ("net::ERR_…"); empty without a failure.
    QString contentType = {};            ///< Without parameters; empty when it is not known.
    std::optional<qint64> fileSize = {}; ///< In bytes, of a file that is offered, if the server tells it.
    bool isFile = false;    ///< A file is offered for download; it is fetched only as far as it is wanted.
    QSize pictureSize = {}; ///< In pixels; invalid for what is no picture.
    std::optional<QByteArray> text = {}; ///< When it was wanted and could be read.
};

/// Visits addresses for somebody who only wants to know what is there: in a page that nobody sees, without
/// cookies and scripts, and of each page nothing but the document itself.
class Visitor
{
public:
    using Visited = std::function<void(const Visit &)>;

    virtual ~Visitor() = default;

    /// Visits the address, a web address, and tells @p visited what came of it, which may take half a minute.
    /// A visit that is under way is given up and never told.
    virtual void visit(const VisitRequest &request, Visited visited) = 0;
    /// Gives up a visit that is under way.
    virtual void stop() = 0;
};

} // namespace quillon
