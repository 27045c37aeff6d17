#pragma once

#include <QObject>
#include <QTimer>
#include <queue>

#include <chrono>
#include <functional>

namespace quillon {

/**
 * Pastes one after the other through the one clipboard there is.
 *
 * A page reads the clipboard some time after it was told to paste. So the next value goes there only when the
 * paste before it is done, or when the page has not answered for as long as a page may take.
 */
class PasteQueue : public QObject
{
    Q_OBJECT
public:
    using Done = std::function<void()>;
    /// Begins a paste and calls @p done, once, when the page has read the clipboard.
    using Paste = std::function<void(Done done)>;

    static constexpr std::chrono::seconds patience{10};

    explicit PasteQueue(Paste paste, QObject *parent = nullptr);

    /// Runs @p fillClipboard and pastes, after all that waits already.
    void add(std::function<void()> fillClipboard);

    /// Forgets what waits: its page is gone. The clipboard gets the last value, for the author to paste.
    void clear();

private:
    void startNext();

    Paste m_paste;
    std::queue<std::function<void()>> m_waiting;
    QTimer m_patience;
    int m_current = 0; ///< Number of the paste that is under way; done() of another one is too late.
    bool m_isPasting = false;
};

} // namespace quillon
