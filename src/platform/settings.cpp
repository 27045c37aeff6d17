#include "platform/settings.h"

#include <QDir>

#include <memory>

using namespace Qt::StringLiterals;

namespace quillon {

namespace {

std::unique_ptr<QSettings> &current()
{
    static std::unique_ptr<QSettings> settings;
    return settings;
}

} // namespace

QSettings &settings()
{
    if (!current())
        setSettingsHome(QDir::homePath());
    return *current();
}

void setSettingsHome(const QString &homeFolder)
{
    current() =
        std::make_unique<QSettings>(homeFolder + u"/.config/Marrowick/Quillon.conf"_s, QSettings::IniFormat);
}

} // namespace quillon
