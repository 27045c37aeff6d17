#include "shell/single_instance.h"

#include "store/process_state.h"

#include <QCryptographicHash>
#include <QDir>
#include <QLocalSocket>
#include <QStandardPaths>

using namespace Qt::StringLiterals;

namespace quillon {

namespace {

/// The socket's path: short enough for one, and another for every data folder. Empty where the user has no
/// runtime folder that is safe; nowhere else is a socket made.
QString serverName()
{
    const QString folderOfSockets = QStandardPaths::writableLocation(QStandardPaths::RuntimeLocation);
    if (folderOfSockets.isEmpty())
        return {};
    const QByteArray folder = QCryptographicHash::hash(mwqnAppSuppLoc.toUtf8(), QCryptographicHash::Sha256);
    static constexpr qsizetype length = 16;
    return QDir(folderOfSockets).filePath(u"quillon-"_s + QString::fromLatin1(folder.toHex().first(length)));
}

} // namespace

SingleInstance::SingleInstance(QObject *parent) : QObject(parent)
{
    m_server.setSocketOptions(QLocalServer::UserAccessOption);
    connect(&m_server, &QLocalServer::newConnection, this, [this] {
        while (QLocalSocket *socket = m_server.nextPendingConnection())
            socket->deleteLater();
        Q_EMIT activated();
    });
}

void SingleInstance::listen()
{
    const QString name = serverName();
    if (name.isEmpty())
        return;
    // A socket left behind by a crash belongs to nobody: the lock is ours.
    QLocalServer::removeServer(name);
    m_server.listen(name);
}

bool SingleInstance::activateOther()
{
    const QString name = serverName();
    if (name.isEmpty())
        return false;
    QLocalSocket socket;
    socket.connectToServer(name);
    static constexpr int patience = 2000; // Milliseconds.
    return socket.waitForConnected(patience);
}

} // namespace quillon
