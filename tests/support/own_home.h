#pragma once

#include "platform/settings.h"

#include <QTemporaryDir>

namespace quillon {

/// A home folder of a program's own while this lives, for it and for what it starts: nothing that the user
/// has there changes what a test sees, and no test leaves anything there, nor sockets elsewhere. To be made
/// before the application.
class OwnHome
{
public:
    OwnHome()
    {
        if (!m_folder.isValid())
            qFatal("No home folder can be made: %s", qUtf8Printable(m_folder.errorString()));
        for (const char *here : {"HOME", "XDG_RUNTIME_DIR"})
            qputenv(here, m_folder.path().toUtf8());
        for (const char *elsewhere : {"XDG_CACHE_HOME", "XDG_CONFIG_HOME", "XDG_DATA_HOME", "XDG_STATE_HOME"})
            qunsetenv(elsewhere);
    }
    ~OwnHome()
    {
        settings().sync(); // Else they are stored when the program ends, and the folder is made once more.
    }
    Q_DISABLE_COPY_MOVE(OwnHome)

private:
    QTemporaryDir m_folder;
};

} // namespace quillon
