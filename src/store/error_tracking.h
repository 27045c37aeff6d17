#pragma once

#include "platform/result.h"
#include "platform/string_dictionary.h"

#include <QString>

namespace quillon {

/**
 * The selected title's error log: which fields break a rule, and the message for each.
 *
 * Keys are the names of the fields' controls. With no title selected, or a log that is missing or not
 * understood, nothing is read and nothing is written; what cannot be read is not replaced.
 */
class ErrorTracking
{
public:
    ErrorTracking() = delete;

    /// Records @p message for the field @p key, in place of an earlier one. A null key or message does
    /// nothing.
    static void setHasError(const QString &key, const QString &message);

    /// Removes the message of the field @p key; the file is left alone when there is none.
    static void setNoError(const QString &key);

    /// Message by field key; callers take a log that is missing or not understood for one without errors.
    static Result<StringDictionary> returnErrorDictionary();
};

} // namespace quillon
