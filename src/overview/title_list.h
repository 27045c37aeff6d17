#pragma once

#include "store/summary_file.h"

#include <QList>
#include <QString>

#include <optional>

namespace quillon {

/// One entry of the software list, as its summary file has it.
struct Title
{
    QString name;
    Summary summary;
};

/// What is done with folders of the older layout.
enum class OldLayout
{
    Convert, ///< Made into title folders; one whose new name is taken or not usable, or that could not be
             ///< stored anew, stays as it is.
    Leave    ///< Not listed.
};

/// All titles in the data folder, in case-insensitive order of their names. Links are not followed. A folder
/// that no title can be opened by, since it lies in another one, is left out and logged.
///
/// A title folder without a readable summary is there with empty values.
QList<Title> loadTitles(OldLayout oldLayout = OldLayout::Convert);

/// Why the data folder cannot be listed, one line; none when it can be, or is not there yet.
std::optional<QString> dataFolderFailure();

/// The summary of the title @p name as it is on disk now.
Summary loadSummary(const QString &name);

} // namespace quillon
