#pragma once

#include <QStringView>

/// Every name that is posted on the notification centre, with its meaning. None carries an object or data.
namespace quillon::notification {

/// Reload the software list.
inline constexpr QStringView mwqnOvLSlst = u"mwqnOvLSlst";
/// Refresh the overview, because sites were removed.
inline constexpr QStringView mwqnOCu432hjiudsh = u"mwqnOCu432hjiudsh";
/// Reload the submission window's site list and marks.
inline constexpr QStringView mwqnLSLsc = u"mwqnLSLsc";
/// Refresh the field copy buttons from the stored PAD file.
inline constexpr QStringView mwqnSClpd = u"mwqnSClpd";
/// Load the selected title's PAD file into the editor.
inline constexpr QStringView mwqnLPDIed = u"mwqnLPDIed";
/// Run the editor's full check.
inline constexpr QStringView mwqnEdChFEr = u"mwqnEdChFEr";
/// Rebuild the site catalogue.
inline constexpr QStringView mwqnPClSiL432ds = u"mwqnPClSiL432ds";
/// The submission window was closed.
inline constexpr QStringView mwqnRS87968tJHKgfds = u"mwqnRS87968tJHKgfds";
/// The progress bar was drawn.
inline constexpr QStringView mwqnTCRstVw = u"mwqnTCRstVw";
/// Redraw the progress bar.
inline constexpr QStringView mwqnPVdr = u"mwqnPVdr";
/// Redisplay the progress bar.
inline constexpr QStringView mwqnPVjhj342sa9 = u"mwqnPVjhj342sa9";
/// The set of writes that have failed and not been mended since has changed.
inline constexpr QStringView failedWritesChanged = u"failedWritesChanged";

} // namespace quillon::notification
