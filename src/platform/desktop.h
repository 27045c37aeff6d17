#pragma once

#include <QString>
#include <QUrl>

namespace quillon {

/// What the desktop does for the program; the window system does it, tests note it down.
class Desktop
{
public:
    virtual ~Desktop() = default;

    /// Puts plain text on the general clipboard.
    virtual void setClipboardText(const QString &text) = 0;

    /// Opens @p address in the user's own web browser; only addresses of the web and pages of the manual.
    virtual void openWebAddress(const QUrl &address) = 0;

    /// Shows this program in the desktop's software centre. False when nothing could be started for it; true
    /// does not tell that there is a software centre.
    virtual bool openSoftwareCentre() = 0;
};

} // namespace quillon
