#include "support/web_server.h"

#include "support/testing.h"

#include <QUrlQuery>

namespace quillon {

WebServer::WebServer()
{
    listen(QHostAddress::LocalHost);
    connect(this, &QTcpServer::newConnection, this, [this] {
        while (QTcpSocket *connection = nextPendingConnection()) {
            connect(connection, &QTcpSocket::readyRead, this, [this, connection] { read(connection); });
            connect(connection, &QTcpSocket::disconnected, connection, &QObject::deleteLater);
        }
    });
}

QString WebServer::url(const QString &path) const
{
    return u"http://127.0.0.1:%1%2"_s.arg(serverPort()).arg(path);
}

void WebServer::read(QTcpSocket *connection)
{
    const QByteArray request = connection->property("request").toByteArray() + connection->readAll();
    connection->setProperty("request", request);
    const qsizetype head = request.indexOf("\r\n\r\n") + 4;
    if (head < 4)
        return;
    qsizetype length = 0;
    for (const QByteArray &line : request.first(head).split('\n')) {
        if (line.toLower().startsWith("content-length:"))
            length = line.sliced(line.indexOf(':') + 1).trimmed().toInt();
        cookies += line.toLower().startsWith("cookie:") ? 1 : 0;
    }
    if (request.size() < head + length)
        return;
    connection->setProperty("request", QByteArray());
    if (request.startsWith("POST"))
        m_posted = request.sliced(head, length);
    answer(connection, QString::fromUtf8(request.split(' ').value(1)));
}

void WebServer::answer(QTcpSocket *connection, const QString &path)
{
    requests.append(path);
    const QString file = QStringLiteral(QUILLON_PAGES) + path.section(u'?', 0, 0);
    if (m_answers.contains(path))
        send(connection, m_answers[path]);
    else if (QFile::exists(file))
        send(connection, {contents(file)});
    else
        send(connection, {"<p>No such page</p>", "text/html", "404 Not Found"});
}

void WebServer::send(QTcpSocket *connection, const Answer &answer)
{
    const QByteArray head = "HTTP/1.1 " + answer.status + "\r\nContent-Type: " + answer.type +
                            "\r\nContent-Length: " + QByteArray::number(answer.body.size()) + "\r\n" +
                            answer.header + "\r\n";
    const QByteArray whole = head + answer.body;
    const qsizetype half = head.size() + answer.body.size() / 2;
    const qsizetype sent = answer.extent == Extent::Whole  ? whole.size()
                           : answer.extent == Extent::Held ? 0
                                                           : half;
    connection->write(whole.first(sent));
    if (answer.extent == Extent::Half)
        connection->disconnectFromHost();
    else if (sent < whole.size())
        m_held.append({connection, whole.sliced(sent)});
}

void WebServer::release()
{
    for (const auto &[connection, rest] : std::exchange(m_held, {})) {
        if (connection)
            connection->write(rest);
    }
}

QString WebServer::posted(const QString &field) const
{
    // A form with files comes in parts, others as one line.
    const QByteArray part = "name=\"" + field.toUtf8() + "\"";
    if (const qsizetype at = m_posted.indexOf(part); at >= 0) {
        const qsizetype begin = m_posted.indexOf("\r\n\r\n", at) + 4;
        return QString::fromUtf8(m_posted.sliced(begin, m_posted.indexOf("\r\n--", begin) - begin));
    }
    const QUrlQuery query(QString::fromUtf8(m_posted).replace(u'+', u"%20"_s));
    return query.hasQueryItem(field) ? query.queryItemValue(field, QUrl::FullyDecoded) : u"(no such field)"_s;
}

} // namespace quillon
