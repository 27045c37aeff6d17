#pragma once

#include "platform/string_dictionary.h"

#include <QString>

namespace quillon {

/// The errors of a form while its fields are judged: message by the key of the field.
class ErrorPass
{
public:
    /// Begins with the errors that are known from before.
    explicit ErrorPass(StringDictionary errors = {}) : m_errors(std::move(errors)) {}

    /// Records @p message for the field @p key, in place of an earlier one. A null key or message does
    /// nothing.
    void setHasError(const QString &key, const QString &message)
    {
        if (!key.isNull() && !message.isNull())
            m_errors[key] = message;
    }

    /// Removes the message of the field @p key, if it has one.
    void setNoError(const QString &key) { m_errors.erase(key); }

    [[nodiscard]] const StringDictionary &errors() const { return m_errors; }

private:
    StringDictionary m_errors;
};

} // namespace quillon
