#include "shell/single_instance.h"

#include "store/process_state.h"

#include <QCryptographicHash>
#include <QDeadlineTimer>
#include <QDir>
#include <QLocalSocket>
#include <QStandardPaths>
#include <QTimer>

#include <sys/socket.h>
#include <unistd.h>

using namespace Qt::StringLiterals;

namespace quillon {

namespace {

constexpr std::chrono::milliseconds untilConnected{2000};
constexpr std::chrono::milliseconds untilAnswered{5000};
constexpr std::chrono::milliseconds untilSent{5000}; ///< What comes in takes no longer.
const QByteArray accepted = "accepted";

/// Whether the user of the program at the other end is the own one, whatever the socket's rights are.
bool isOwnUser(const QLocalSocket &socket)
{
    ucred other{};
    socklen_t size = sizeof other;
    return getsockopt(int(socket.socketDescriptor()), SOL_SOCKET, SO_PEERCRED, &other, &size) == 0 &&
           other.uid == geteuid();
}

/// Ends the conversation with one line.
void answer(QLocalSocket &socket, const QByteArray &line)
{
    QObject::disconnect(&socket, &QLocalSocket::readyRead, nullptr, nullptr);
    socket.write(line + '\n');
    socket.flush(); // Before what was asked for is done, which takes time.
    socket.disconnectFromServer();
}

/// The line that comes in until @p deadline; empty when none does.
QByteArray lineOf(QLocalSocket &socket, const QDeadlineTimer &deadline)
{
    while (!socket.canReadLine()) {
        if (!socket.waitForReadyRead(int(deadline.remainingTime())))
            return {};
    }
    return socket.readLine().trimmed();
}

} // namespace

SingleInstance::SingleInstance(QObject *parent) : QObject(parent)
{
    m_server.setSocketOptions(QLocalServer::UserAccessOption);
    connect(&m_server, &QLocalServer::newConnection, this, [this] {
        while (QLocalSocket *socket = m_server.nextPendingConnection())
            receive(*socket);
    });
}

QString SingleInstance::address()
{
    const QString folderOfSockets = QStandardPaths::writableLocation(QStandardPaths::RuntimeLocation);
    if (folderOfSockets.isEmpty())
        return {};
    const QByteArray folder = QCryptographicHash::hash(mwqnAppSuppLoc.toUtf8(), QCryptographicHash::Sha256);
    static constexpr qsizetype length = 16;
    return QDir(folderOfSockets).filePath(u"quillon-"_s + QString::fromLatin1(folder.toHex().first(length)));
}

void SingleInstance::listen()
{
    const QString name = address();
    if (name.isEmpty())
        return;
    // A socket left behind by a crash belongs to nobody: the lock is ours.
    QLocalServer::removeServer(name);
    m_server.listen(name);
}

void SingleInstance::receive(QLocalSocket &socket)
{
    connect(&socket, &QLocalSocket::disconnected, &socket, &QObject::deleteLater);
    QTimer::singleShot(untilSent, &socket, [&socket] { socket.abort(); });
    if (!isOwnUser(socket)) {
        answer(socket, "Quillon takes nothing from other users.");
        return;
    }
    socket.setReadBufferSize(StartRequest::mostBytes + 1);
    connect(&socket, &QLocalSocket::readyRead, this, [this, &socket] { read(socket); });
    read(socket); // What has come already is not told of again.
}

void SingleInstance::read(QLocalSocket &socket)
{
    if (!socket.canReadLine() && socket.bytesAvailable() <= StartRequest::mostBytes)
        return;
    const auto request = StartRequest::read(socket.readLine().trimmed());
    answer(socket, request ? accepted : request.error().reason.toUtf8());
    if (request)
        Q_EMIT requested(*request);
}

Result<> SingleInstance::handOver(const StartRequest &request)
{
    const QByteArray message = request.message();
    if (const auto judged = StartRequest::read(message); !judged)
        return judged.error();
    const QString name = address();
    QLocalSocket socket;
    if (!name.isEmpty())
        socket.connectToServer(name);
    if (name.isEmpty() || !socket.waitForConnected(int(untilConnected.count())))
        return Error{Error::Kind::Missing, {}, u"Another program is working on the data folder."_s};
    socket.write(message + '\n');
    const QByteArray line = lineOf(socket, QDeadlineTimer(untilAnswered));
    if (line.isEmpty())
        return Error{
            Error::Kind::NotDone,
            {},
            u"Quillon is running already, but does not answer yet; it may still do what was asked for."_s};
    return line == accepted ? Result<>() : Error{Error::Kind::Refused, {}, QString::fromUtf8(line)};
}

} // namespace quillon
