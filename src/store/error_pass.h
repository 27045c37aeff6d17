#pragma once

#include "platform/result.h"
#include "platform/string_dictionary.h"

#include <QByteArray>
#include <QString>

namespace quillon {

/**
 * An error log while many fields are judged: read once at the start, changed in memory, stored once at the
 * end.
 *
 * A log that is missing or unreadable is never written, so that it is not made anew behind the back of
 * whoever removed it: the errors are then known to the pass alone.
 */
class ErrorPass
{
public:
    /// Begins with the log of the selected title, unreadable when no title is selected.
    static ErrorPass ofSelectedTitle();

    /// Begins with no errors and belongs to no title: for a form that is judged but not stored.
    ErrorPass() = default;

    /// Records @p message for the field @p key, in place of an earlier one. A null key or message does
    /// nothing.
    void setHasError(const QString &key, const QString &message);

    /// Removes the message of the field @p key, if it has one.
    void setNoError(const QString &key);

    /// Message by field key, whether or not there is a log to hold it.
    [[nodiscard]] const StringDictionary &errors() const { return m_errors; }

    /// Whether the log holds no message once the pass is stored; one that is missing or unreadable never
    /// does.
    [[nodiscard]] bool isLogEmpty() const { return !m_original || m_errors.empty(); }

    /// Replaces the selected title's log, unless nothing in it has changed. Failures are kept in
    /// mwqnFailedWrites, until a later pass finds the log as it should be.
    void store() const;

private:
    explicit ErrorPass(const Result<QByteArray> &log);

    Result<QByteArray> m_log = QByteArray(); ///< As it was read.
    Result<StringDictionary> m_original = StringDictionary();
    StringDictionary m_errors;
};

} // namespace quillon
