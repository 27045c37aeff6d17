#pragma once

#include "platform/result.h"
#include "platform/string_dictionary.h"

#include <QByteArray>

namespace quillon {

/**
 * The selected title's error log as it was read, once, and the way to replace it.
 *
 * A log that is missing or unintelligible is never written, so that it is not made anew behind the back of
 * whoever removed it. One that could not be read is not replaced either.
 */
class ErrorLog
{
public:
    /// Reads the log; it is missing when no title is selected.
    ErrorLog();

    /// Message by field key.
    [[nodiscard]] const Result<StringDictionary> &stored() const { return m_stored; }

    /// What the log knows of errors: none when it is not there, or not to be understood.
    [[nodiscard]] StringDictionary errors() const { return m_stored.valueOr({}); }

    /// Whether a title with @p errors counts as valid once they are stored. Where there is no log to hold
    /// them it does, on purpose; a log that could not be read hides none of them.
    [[nodiscard]] bool isValidWith(const StringDictionary &errors) const;

    /// Replaces what was read by @p errors, unless they are the same. Failures are kept in mwqnFailedWrites,
    /// until a later log is found as it should be.
    void store(const StringDictionary &errors) const;

private:
    Result<QByteArray> m_bytes;
    Result<StringDictionary> m_stored;
};

} // namespace quillon
