#pragma once

#include "submission/paste_queue.h"

#include <QObject>
#include <QPointer>
#include <QString>
#include <QUrl>

namespace quillon {

class WebEnginePage;

/// Where in a page something is about to be pasted, as a script of ours in that place tells it.
struct PastePlace
{
    /// What has the focus there.
    enum class Kind
    {
        Text,   ///< Text can be written there, or nobody can tell.
        Locked, ///< A field for text that takes none, because it is read-only or disabled.
        None
    };

    Kind kind = Kind::None;
    bool isMainFrame = false;
    QUrl origin;          ///< Of the frame; nothing but scheme, host and port counts.
    qint64 lastPress = 0; ///< When the author last pressed a mouse button in the frame, in ms since 1970.
};

/// Says, while a page waits, whether it may take what is on the clipboard.
class PasteGuard
{
public:
    virtual ~PasteGuard() = default;
    /// Something is about to be pasted at @p place; the page has not seen it yet.
    virtual bool mayPaste(const PastePlace &place) = 0;
    /// The same is about to be written into a field; scripts of the page may have taken their time before.
    virtual bool mayInsert() = 0;
    /// It has been written, or will not be.
    virtual void pasteEnded() = 0;
};

/**
 * Brings values from the clipboard into the page of one browser.
 *
 * The page is told to paste, and asks before it reads the clipboard, and again before it writes into a field.
 * A value goes into the document that it was meant for, and there into a frame of the page's own site, or
 * into one that the author pressed the mouse in last; otherwise nowhere, and notice() says so. What stands in
 * the field then is read back, and where it is something else, notice() says that.
 */
class WebEnginePasting : public QObject, private PasteTarget, private PasteGuard
{
    Q_OBJECT
public:
    /// @p queue is that of all browsers.
    explicit WebEnginePasting(PasteQueue &queue, QObject *parent = nullptr);
    ~WebEnginePasting() override;

    /// From now on values go into @p page, which is empty; what has not been pasted into the one before never
    /// will be.
    void setPage(WebEnginePage &page);

    /// Pastes @p text through the clipboard, after all that waits in the queue.
    void paste(const QString &text);

    /// The page goes elsewhere: what has not been pasted never will be.
    void documentGoes();
    /// The page that it went to is there.
    void documentCame();

    /// The author has pressed a mouse button in the page.
    void mousePressed();

Q_SIGNALS:
    /// What became of a paste, in a sentence; empty when all went well.
    void notice(const QString &text);
    /// @p text has been pasted, and stands in the field as far as that can be read.
    void pasted(const QString &text);

private:
    enum class State
    {
        Idle,
        Told,   ///< The page was told to paste and has not asked yet.
        Asked,  ///< It has asked, and was answered.
        Expired ///< It was told, and may still begin; too late.
    };

    bool mayPaste(const PastePlace &place) override;
    bool mayInsert() override;
    void pasteEnded() override;

    void begin(const QString &text, Done done) override;
    void giveUp() override;

    void tellPage();
    void expire();
    void awaitAnswer();
    void pageAnswered();
    void becomeIdle();
    void finish();
    void lookAgain(const QString &told, int look);
    [[nodiscard]] bool isForeign(const PastePlace &place) const;
    [[nodiscard]] QString obstacle(const PastePlace &place) const;
    [[nodiscard]] bool clipboardHoldsText() const;
    bool leaveQueue();

    QPointer<PasteQueue> m_queue; ///< Gone before the browsers when their window goes.
    QPointer<WebEnginePage> m_page;
    State m_state = State::Idle;
    QString m_text; ///< What is meant to be pasted.
    Done m_done;
    QString m_outcome;         ///< What the author is told in the end.
    bool m_isReadable = false; ///< The page can be asked what has become of it.
    bool m_isAllowed = false;  ///< The answer that the page was given.
    bool m_isWaiting = false;  ///< begin() was called while the paste before it could still begin.
    bool m_frameLurks = false; ///< A frame of another site may still begin to paste what has expired.
    int m_reading = 0;         ///< Number of the field that is read back.
    int m_command = 0;         ///< Number of what the page was last told or asked.
    qint64 m_lastPress = 0;    ///< In ms since 1970.
};

} // namespace quillon
