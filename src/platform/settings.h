#pragma once

#include <QSettings>

namespace quillon {

/// What the windows remember between runs (sizes, column widths, the toolbar's items): never an author's
/// data. A file of its own below the home folder, so that another home folder means other settings.
QSettings &settings();

/// Makes the settings those of @p homeFolder. Before the first use of settings().
void setSettingsHome(const QString &homeFolder);

} // namespace quillon
