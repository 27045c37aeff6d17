#pragma once

#include "validation/universal_converters.h"

namespace quillon {

/// An e-mail address taken apart. The parts are what their patterns find, which is not always the whole of
/// what stands between the signs.
struct EmailAddress
{
    enum class Fit : quint8
    {
        Missing,
        TooShort,
        Fits,
        TooLong
    };

    qsizetype length = 0;
    qsizetype at = -1;    ///< Place of the first "@".
    qsizetype point = -1; ///< Place of the first "." in what follows the "@".
    qsizetype domainLength = 0;
    qsizetype extensionLength = 0; ///< With its leading point.
    Fit local = Fit::Missing;
    Fit domain = Fit::Missing;
    Fit extension = Fit::Missing;

    [[nodiscard]] bool isAcceptable() const
    {
        return local == Fit::Fits && domain == Fit::Fits && extension == Fit::Fits;
    }
};

/// The parts of @p text, judged by @p bounds.
EmailAddress takenApart(QStringView text, const EmailBounds &bounds);

/// Colours @p field, which is not empty, part by part. Without an "@" the whole field is red, edited or not.
void colour(const EmailAddress &address, const EmailBounds &bounds, TextControl &field);

} // namespace quillon
