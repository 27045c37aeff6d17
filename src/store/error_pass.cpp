#include "store/error_pass.h"

#include "platform/property_list.h"
#include "store/add_delete_import_edit.h"
#include "store/process_state.h"

namespace quillon {

ErrorPass::ErrorPass(const std::optional<QByteArray> &log)
    : m_log(log.value_or(QByteArray()))
    , m_original(property_list::read(m_log))
    , m_errors(m_original.value_or(StringDictionary()))
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
    if (!m_original)
        return;
    if (m_errors != *m_original)
        AddDeleteImportEdit::writeErrors(m_errors);
    else if (!mwqnFailedWrites.isEmpty())
        AddDeleteImportEdit::writeToFile(u"error", m_log); // The log is as it should be: that is no failure.
}

} // namespace quillon
