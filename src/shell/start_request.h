#pragma once

#include "platform/result.h"

#include <QByteArray>
#include <QStringList>

namespace quillon {

/// What a start of the program asks for. One that finds another running hands it over as a message: data, in
/// bounds, and nothing that the other would run.
struct StartRequest
{
    static constexpr qsizetype mostBytes = 4'194'304; ///< Of a message, without its end.
    static constexpr qsizetype mostFiles = 10'000;
    static constexpr qsizetype longestText = 4096; ///< Of a path, or of the token.

    QStringList files = {};       ///< To be imported; absolute paths.
    bool asksForTitle = false;    ///< The name of a new title is to be asked for.
    QString activationToken = {}; ///< By which the desktop lets a window come to the front; may be empty.

    [[nodiscard]] bool isEmpty() const { return files.isEmpty() && !asksForTitle; }

    /// One line of JSON, without its end.
    [[nodiscard]] QByteArray message() const;
    /// What @p message asks for; otherwise the error's reason is for whoever has sent it.
    static Result<StartRequest> read(const QByteArray &message);
};

} // namespace quillon
