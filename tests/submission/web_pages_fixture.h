#pragma once

#include "submission/submit_window_fixture.h"

/// How the window treats pages of every kind.
class WebPagesTest : public SubmitWindowTest
{
protected:
    static constexpr QStringView errorTitle = u"Error Loading URL";

    static QString address() { return visible<QLineEdit>(u"urlField"_s)->text(); }
    static bool isBusy()
    {
        return visible<QWidget>(u"submitWindow"_s)
            ->findChild<QWidget *>(u"webViewLoadProgress"_s)
            ->isVisible();
    }
    /// Everything below the home folder, but for the engine's and the settings.
    [[nodiscard]] QStringList files() const
    {
        QStringList found = tree(home()).keys();
        found.removeIf([](const QString &path) { return path.startsWith(u".config"); });
        return found;
    }
};
