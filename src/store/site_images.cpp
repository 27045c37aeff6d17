#include "store/site_images.h"

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
    static constexpr qsizetype maxFileNameBytes = 255;
    if (site.contains(u'/') || site.contains(QChar(u'\0')) || file.toUtf8().size() > maxFileNameBytes)
        return std::nullopt;
    return folder() + file;
}

} // namespace quillon::site_images
