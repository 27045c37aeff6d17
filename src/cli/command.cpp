#include "cli/command.h"

#include "store/storage_status.h"
#include "store/title_folder.h"

using namespace Qt::StringLiterals;

namespace quillon::cli {

bool titleExists(const QString &name)
{
    if (title_folder::exists(name))
        return true;
    complain(u"There is no title named %1."_s.arg(name));
    return false;
}

ExitStatus outcome(const Result<> &result)
{
    if (result)
        return Done;
    complain(failureLine(result.error()));
    return FileFailed;
}

ExitStatus outcomeOrRefusal(const Result<> &result)
{
    if (!result.isError(Error::Kind::Refused))
        return outcome(result);
    complain(failureSentence(result.error()));
    return Refused;
}

} // namespace quillon::cli
