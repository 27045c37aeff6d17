#pragma once

#include <QLocalServer>
#include <QObject>

namespace quillon {

/// Lets a second start of the program bring the window of the first to the front. One socket for each data
/// folder and user, below the user's runtime folder.
class SingleInstance : public QObject
{
    Q_OBJECT
public:
    explicit SingleInstance(QObject *parent = nullptr);

    /// Begins to listen; for the one that holds the data folder's lock. Nothing without a runtime folder.
    void listen();

    /// Asks the one that listens to come to the front. False when nobody answers.
    static bool activateOther();

Q_SIGNALS:
    /// Another start asks this one to come to the front.
    void activated();

private:
    QLocalServer m_server;
};

} // namespace quillon
