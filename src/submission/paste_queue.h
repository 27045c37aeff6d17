#pragma once

#include <QObject>
#include <QTimer>

#include <chrono>
#include <deque>
#include <functional>
#include <optional>

namespace quillon {

/**
 * Pastes one after the other through the one clipboard there is, whichever page each is for.
 *
 * A page reads the clipboard some time after it was told to paste. So the next value goes there only when the
 * paste before it is done, or when its page has not answered for as long as a page may take.
 */
class PasteQueue : public QObject
{
    Q_OBJECT
public:
    using Done = std::function<void()>;

    struct Paste
    {
        const void *page; ///< Whom it is for; nothing but a name.
        std::function<void()> fillClipboard;
        /// Begins to paste and calls @p done, once, when the page has read the clipboard or never will.
        std::function<void(Done done)> begin;
        /// The page has not answered: from now on it must not read the clipboard for this paste.
        std::function<void()> giveUp;
    };

    static constexpr std::chrono::seconds patience{10};

    explicit PasteQueue(QObject *parent = nullptr);

    /// Fills the clipboard and pastes, after all that waits already.
    void add(Paste paste);

    /// Forgets all that is for @p page, and gives whether there was something. When nothing else waits, the
    /// clipboard gets the last value, for the author to paste.
    bool drop(const void *page);

    /// The paste that is under way has taken too long: goes on with the next one.
    void giveUp();

private:
    void startNext();

    std::deque<Paste> m_waiting;
    std::optional<Paste> m_current;
    QTimer m_patience;
    int m_number = 0; ///< Of the current paste; done() of another one is too late.
};

} // namespace quillon
