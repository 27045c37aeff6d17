#include "store/error_tracking.h"

#include "platform/property_list.h"
#include "store/add_delete_import_edit.h"
#include "store/error_pass.h"

namespace quillon {

void ErrorTracking::setHasError(const QString &key, const QString &message)
{
    ErrorPass pass = ErrorPass::ofSelectedTitle();
    pass.setHasError(key, message);
    pass.store();
}

void ErrorTracking::setNoError(const QString &key)
{
    ErrorPass pass = ErrorPass::ofSelectedTitle();
    pass.setNoError(key);
    pass.store();
}

Result<StringDictionary> ErrorTracking::returnErrorDictionary()
{
    const auto bytes = AddDeleteImportEdit::returnDataObjectFor(u"error");
    return bytes ? property_list::read(*bytes) : bytes.error();
}

} // namespace quillon
