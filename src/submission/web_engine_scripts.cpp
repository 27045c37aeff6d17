#include "submission/web_engine_scripts.h"

#include <QFile>

using namespace Qt::StringLiterals;

/// What a static library has as resources is there when it is asked for; outside any namespace.
static void initScripts()
{
    Q_INIT_RESOURCE(quillon_scripts);
}

namespace quillon {

QString ownScript(const QString &name)
{
    initScripts();
    QFile file(u":/scripts/"_s + name);
    if (!file.open(QIODevice::ReadOnly))
        qFatal("%s is not part of the program.", qPrintable(file.fileName()));
    return QString::fromUtf8(file.readAll()).trimmed();
}

} // namespace quillon
