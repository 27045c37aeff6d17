#pragma once

#include "platform/result.h"
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

/// What the data folder holds, as far as it could be read.
struct TitleList
{
    QList<Title> titles;
    QList<Error> failures = {}; ///< What could not be listed, read or moved to today's layout.
    bool hasOldLayout = false;  ///< There are folders of the older layout.
};

/// What is done with folders of the older layout.
enum class OldLayout
{
    Convert, ///< Made into title folders; one whose new name is taken or not usable, whose files cannot be
             ///< read, or that could not be stored anew, stays as it is.
    Leave    ///< Not listed.
};

/// All titles in the data folder, at every depth, in case-insensitive order of their names. A link to a title
/// folder is a title; links to other folders are not followed.
///
/// A title folder without a readable summary is there with empty values. One that lies in another folder has
/// that one's name and a "/" before its own, and can be looked at only.
///
/// An error when the data folder cannot be listed; one that is not there yet has no titles.
Result<TitleList> loadTitles(OldLayout oldLayout = OldLayout::Convert);

/// Begins to look through the data folder in a thread of its own; the next loadTitles() takes what is found
/// there. Nothing may be written in the data folder in between.
void readTitlesAhead();

/// The summary of the title @p name as it is on disk now.
Result<Summary> loadSummary(const QString &name);

} // namespace quillon
