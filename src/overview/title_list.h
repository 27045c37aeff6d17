#pragma once

#include "store/summary_file.h"

#include <QList>
#include <QString>

namespace quillon {

/// One entry of the software list, as its summary file has it.
struct Title
{
    QString name;
    Summary summary;
};

/// All titles in the data folder, at every depth, in case-insensitive order of their names. Links are not
/// followed.
///
/// A title folder without a readable summary is there with empty values. Folders of the older layout are made
/// into title folders first; one whose new name is taken, or that could not be stored anew, stays as it is.
QList<Title> loadTitles();

/// The summary of the title @p name as it is on disk now.
Summary loadSummary(const QString &name);

} // namespace quillon
