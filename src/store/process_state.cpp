#include "store/process_state.h"

#include "store/title_folder.h"

using namespace Qt::StringLiterals;

namespace quillon {

void setDataFolder(const QString &homeFolder)
{
    mwqnAppSuppLoc = homeFolder + u"/Library/Application Support/Marrowick/Quillon/"_s;
}

void selectTitle(const QString &name)
{
    mwqnSelSW = name;
    mwqnCurrentSWBundle = title_folder::path(name);
}

void clearSelectedTitle()
{
    mwqnSelSW.reset();
    mwqnCurrentSWBundle.reset();
}

} // namespace quillon
