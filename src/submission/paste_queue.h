#pragma once

#include <QObject>
#include <QString>
#include <QTimer>

#include <chrono>
#include <deque>
#include <functional>
#include <optional>

namespace quillon {

class Desktop;

/// A page that takes what is on the clipboard when it is told to.
class PasteTarget
{
public:
    using Done = std::function<void()>;

    virtual ~PasteTarget() = default;
    /// The clipboard holds @p text: begins to paste it and calls @p done, once, when the page has read the
    /// clipboard or never will.
    virtual void begin(const QString &text, Done done) = 0;
    /// The page has not answered: from now on it must not read the clipboard for this paste.
    virtual void giveUp() = 0;
};

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
    static constexpr std::chrono::seconds patience{10};

    /// @p desktop has the clipboard and must outlive the queue.
    explicit PasteQueue(Desktop &desktop, QObject *parent = nullptr);

    /// Puts @p text on the clipboard and has @p target paste it, after all that waits already. A target that
    /// goes must be dropped before.
    void add(PasteTarget &target, const QString &text);

    /// Forgets all that is for @p target, and gives whether there was something. When nothing else waits, the
    /// clipboard gets the last value, for the author to paste.
    bool drop(const PasteTarget &target);

    /// The paste that is under way has taken too long: goes on with the next one.
    void giveUp();

private:
    struct Paste
    {
        PasteTarget *target;
        QString text;
    };

    void startNext();

    Desktop &m_desktop;
    std::deque<Paste> m_waiting;
    std::optional<Paste> m_current;
    QTimer m_patience;
    int m_number = 0; ///< Of the current paste; done() of another one is too late.
};

} // namespace quillon
