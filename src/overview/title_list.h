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
    Convert, ///< Made into title folders; one whose new name is taken or not usable, whose PAD file cannot be
             ///< read, or that could not be stored anew, stays as it is.
    Leave    ///< Not listed.
};

/// All titles in the data folder, at every depth, in case-insensitive order of their names. A link to a title
/// folder is a title; links to other folders are not followed.
///
/// A title folder without a readable summary is there with empty values. One that lies in another folder has
/// that one's name and a "/" before its own, and can be looked at only.
QList<Title> loadTitles(OldLayout oldLayout = OldLayout::Convert);

/// Why the data folder cannot be listed, one line; none when it can be, or is not there yet.
std::optional<QString> dataFolderFailure();

/// The summary of the title @p name as it is on disk now.
Summary loadSummary(const QString &name);

} // namespace quillon
