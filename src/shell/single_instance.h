#pragma once

#include "shell/start_request.h"

#include <QLocalServer>
#include <QObject>

class QLocalSocket;

namespace quillon {

/**
 * Lets a second start of the program hand over to the first what it was started for. One socket for each data
 * folder and user, below the user's runtime folder.
 *
 * A request is a line (StartRequest), and so is the answer. Whoever is not the own user, sends more than a
 * request may have, or sends nothing for a while, is refused.
 */
class SingleInstance : public QObject
{
    Q_OBJECT
public:
    explicit SingleInstance(QObject *parent = nullptr);

    /// Begins to listen; for the one that holds the data folder's lock. Nothing without a runtime folder.
    void listen();

    /// The socket's path: short enough for one, and another for every data folder. Empty where the user has
    /// no runtime folder that is safe; nowhere else is a socket made.
    static QString address();

    /// Asks the one that listens to come to the front, and to do what @p request says. Missing when nobody
    /// listens; NotDone when there was no answer, so that it may or may not be done; else it was refused.
    static Result<> handOver(const StartRequest &request);

Q_SIGNALS:
    /// Another start asks this one to come to the front and to do that.
    void requested(const quillon::StartRequest &request);

private:
    void receive(QLocalSocket &socket);
    void read(QLocalSocket &socket);

    QLocalServer m_server;
};

} // namespace quillon
