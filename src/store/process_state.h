#pragma once

#include "platform/result.h"
#include "platform/string_dictionary.h"

#include <QMap>
#include <QString>

#include <optional>

/// Every process-wide value there is. Main thread only.
namespace quillon {

/// Full path of the data folder, with the separator at its end. Set by setDataFolder() at start.
inline QString mwqnAppSuppLoc;

/// The selected title's name; none when no title is selected. Set by selectTitle() and clearSelectedTitle()
/// only.
inline std::optional<QString> mwqnSelSW;

/// The selected title's folder, through which its files are found. Follows mwqnSelSW; none also when the name
/// is one that is never used as a path.
inline std::optional<QString> mwqnCurrentSWBundle;

/// True while the submission window is closed. Set by the shell when it opens the window, and by the window
/// when it closes.
inline bool mwqnWOSi78tgsda = true;

/// URL by name of the default sites. Built once by setDefaultSites(), never changed after.
inline StringDictionary mwqnDefaultSitesDict;

/// URL by name of every site of the catalogue. Set by the site list editor at each merge; empty before the
/// first.
inline StringDictionary mwqnSCPreallSitesDict;

/// What the submission window's load progress bar draws. Set by the functions of submission/load_progress.h.
struct ProgressBarState
{
    float x = 0; ///< The progress rectangle, in points from the bar's top left corner.
    float y = 0;
    float width = 0;
    float height = 0;
    bool isReset = true; ///< The bar looks empty.
    int barWidth = 0;    ///< Width of the bar's frame in whole points.
};
inline ProgressBarState progressBarState;

/// What failed and was not mended since, by path, for the status bar alone. Set by reportFailure() and the
/// functions beside it in storage_status.h.
inline QMap<QString, Error> mwqnFailedWrites;

/// What is wrong with what is kept besides the titles' files and the site lists, by path, for the status bar
/// alone. Set by reportExtrasFailure() and forgetExtrasFailure() in storage_status.h.
inline QMap<QString, Error> mwqnFailedExtras;

/// Makes the data folder below @p homeFolder the one that everything is stored in.
void setDataFolder(const QString &homeFolder);

/// Makes @p name the selected title.
void selectTitle(const QString &name);

/// Leaves no title selected.
void clearSelectedTitle();

} // namespace quillon
