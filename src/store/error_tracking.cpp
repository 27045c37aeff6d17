#include "store/error_tracking.h"

#include "platform/property_list.h"
#include "store/add_delete_import_edit.h"

namespace quillon {

void ErrorTracking::setHasError(const QString &key, const QString &message)
{
    if (key.isNull() || message.isNull())
        return;
    if (std::optional<StringDictionary> errors = returnErrorDictionary()) {
        (*errors)[key] = message;
        AddDeleteImportEdit::writeErrors(*errors);
    }
}

void ErrorTracking::setNoError(const QString &key)
{
    if (key.isNull())
        return;
    std::optional<StringDictionary> errors = returnErrorDictionary();
    if (errors && errors->erase(key) > 0)
        AddDeleteImportEdit::writeErrors(*errors);
}

std::optional<StringDictionary> ErrorTracking::returnErrorDictionary()
{
    const auto bytes = AddDeleteImportEdit::returnDataObjectFor(u"error");
    return bytes ? property_list::read(*bytes) : std::nullopt;
}

} // namespace quillon
