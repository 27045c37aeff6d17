#pragma once

#include <QHash>
#include <QPointer>
#include <QStringList>
#include <QTcpServer>
#include <QTcpSocket>

namespace quillon {

/// A web server on the loopback address that gives the answers it is told to, and writes down what it is
/// asked.
class WebServer : public QTcpServer
{
    Q_OBJECT
public:
    /// How far an answer gets.
    enum class Extent
    {
        Whole,
        Half,    ///< The connection ends in the middle of the body.
        Held,    ///< Nothing is sent before release().
        HalfHeld ///< The second half of the body is not sent before release().
    };
    struct Answer
    {
        QByteArray body;
        QByteArray type = "text/html; charset=utf-8";
        QByteArray status = "200 OK";
        QByteArray header = {}; ///< Whole lines, each with its end.
        Extent extent = Extent::Whole;
    };

    /// Serves the pages of tests/submission/pages by their names, and else what serve() was told.
    WebServer();

    void serve(const QString &path, const Answer &answer) { m_answers[path] = answer; }
    /// Sends what is held.
    void release();

    [[nodiscard]] QString url(const QString &path) const;
    /// How often @p path was asked for.
    [[nodiscard]] qsizetype count(const QString &path) const { return requests.count(path); }
    /// The value of @p field in the form or report that was posted last; a text that is none when it had no
    /// such field.
    [[nodiscard]] QString posted(const QString &field) const;
    /// Forgets what was posted.
    void forget() { m_posted.clear(); }

    QStringList requests;
    int cookies = 0; ///< How many requests brought some along.

private:
    void read(QTcpSocket *connection);
    void answer(QTcpSocket *connection, const QString &path);
    void send(QTcpSocket *connection, const Answer &answer);

    QHash<QString, Answer> m_answers;
    QList<std::pair<QPointer<QTcpSocket>, QByteArray>> m_held;
    QByteArray m_posted;
};

} // namespace quillon
