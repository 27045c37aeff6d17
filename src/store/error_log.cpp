#include "store/error_log.h"

#include "platform/property_list.h"
#include "store/add_delete_import_edit.h"
#include "store/process_state.h"
#include "store/storage_status.h"

namespace quillon {

namespace {

constexpr QStringView key = u"error";

} // namespace

ErrorLog::ErrorLog()
    : m_bytes(AddDeleteImportEdit::returnDataObjectFor(key))
    , m_stored(m_bytes ? property_list::read(*m_bytes) : m_bytes.error())
{
}

bool ErrorLog::isValidWith(const StringDictionary &errors) const
{
    return errors.empty() || m_stored.isError(Error::Kind::Missing) ||
           m_stored.isError(Error::Kind::Unintelligible);
}

void ErrorLog::store(const StringDictionary &errors) const
{
    if (m_bytes.isError(Error::Kind::Unreadable))
        return reportFailure(m_bytes.error());
    if (!m_stored)
        return;
    if (errors != *m_stored)
        (void)AddDeleteImportEdit::writeToFile(key, property_list::write(errors), m_bytes);
    else if (!mwqnFailedWrites.isEmpty())
        (void)AddDeleteImportEdit::writeToFile(key, *m_bytes, m_bytes); // As it should be: no failure.
}

} // namespace quillon
