#include "store/error_tracking.h"

#include "store/error_log.h"

namespace quillon {

void ErrorTracking::setHasError(const QString &key, const QString &message)
{
    if (key.isNull() || message.isNull())
        return;
    const ErrorLog log;
    StringDictionary errors = log.errors();
    errors[key] = message;
    log.store(errors);
}

void ErrorTracking::setNoError(const QString &key)
{
    const ErrorLog log;
    StringDictionary errors = log.errors();
    errors.erase(key);
    log.store(errors);
}

Result<StringDictionary> ErrorTracking::returnErrorDictionary()
{
    return ErrorLog().stored();
}

} // namespace quillon
