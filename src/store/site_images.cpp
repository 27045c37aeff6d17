#include "store/site_images.h"

#include "platform/folder_handle.h"
#include "store/process_state.h"

using namespace Qt::StringLiterals;

namespace quillon::site_images {

QString folder()
{
    return mwqnAppSuppLoc + u"Site Images/"_s;
}

QString programImage(const QString &site, const QString &images)
{
    return images + site + u".svg"_s;
}

std::optional<QString> authorImage(const QString &site)
{
    const QString file = site + u".png"_s;
    return isEntryName(file) ? std::optional(folder() + file) : std::nullopt;
}

} // namespace quillon::site_images
