#include "store/error_pass.h"

#include "platform/property_list.h"
#include "store/add_delete_import_edit.h"
#include "store/process_state.h"
#include "store/storage_status.h"

namespace quillon {

ErrorPass::ErrorPass(const Result<QByteArray> &log)
    : m_log(log), m_original(log ? property_list::read(*log) : log.error()), m_errors(m_original.valueOr({}))
{
}

ErrorPass ErrorPass::ofSelectedTitle()
{
    return ErrorPass(AddDeleteImportEdit::returnDataObjectFor(u"error"));
}

void ErrorPass::setHasError(const QString &key, const QString &message)
{
    if (!key.isNull() && !message.isNull())
        m_errors[key] = message;
}

void ErrorPass::setNoError(const QString &key)
{
    m_errors.erase(key);
}

void ErrorPass::store() const
{
    if (!m_original) {
        if (m_log.isError(Error::Kind::Unreadable))
            reportFailure(m_log.error());
        return;
    }
    if (m_errors != *m_original)
        (void)AddDeleteImportEdit::writeToFile(u"error", property_list::write(m_errors), m_log);
    else if (!mwqnFailedWrites.isEmpty())
        (void)AddDeleteImportEdit::writeToFile(u"error", *m_log, m_log); // As it should be: no failure.
}

} // namespace quillon
