#include "submission/web_engine_pasting.h"

#include "platform/translated_text.h"
#include "platform/web_address.h"
#include "submission/read_back.h"
#include "submission/web_engine_page.h"

#include <QClipboard>
#include <QDateTime>
#include <QGuiApplication>
#include <QTimer>

#include <array>
#include <chrono>
#include <utility>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace quillon {

namespace {

/// Whether a frame of another site has the focus. Such a frame may run in a process of its own, and answers
/// at another time than the page.
const QString focusIsForeign = uR"((() => {
    let element = document.activeElement;
    while (element?.contentDocument)
        element = element.contentDocument.activeElement;
    return /FRAME/.test(element?.tagName);
})())"_s;

/// How long a page that has answered takes at most to begin a paste that it was told of before. Commands and
/// scripts come to it by different ways, of which either may be the faster one.
constexpr std::chrono::milliseconds pasteGrace{500};

/// What the script that watches pastes tells of the last one.
const QString readBack = u"globalThis.quillonPasted?.() ?? null"_s;
/// When a field is read: many pages change what was put into one a moment later.
constexpr std::array<std::chrono::milliseconds, 2> looks{50ms, 400ms};

constexpr QStringView noField =
    QUILLON_TR_NOOP("WebEnginePasting", "Nothing was pasted: click a field of the page first.");
constexpr QStringView lockedField =
    QUILLON_TR_NOOP("WebEnginePasting", "Nothing was pasted: the field cannot be changed, it is read-only.");
constexpr QStringView otherClipboard =
    QUILLON_TR_NOOP("WebEnginePasting", "Nothing was pasted: the clipboard holds something else by now.");
constexpr QStringView foreignFrame = QUILLON_TR_NOOP(
    "WebEnginePasting", "Nothing was pasted: a part of the page that comes from “%1” has taken the "
                        "focus. Click the field that you mean.");
constexpr QStringView noAnswer =
    QUILLON_TR_NOOP("WebEnginePasting", "Nothing was pasted: the page did not answer.");
constexpr QStringView pageLeft =
    QUILLON_TR_NOOP("WebEnginePasting", "Nothing was pasted: the page was left before it took the value.");

QString told(QStringView notice)
{
    return translated("WebEnginePasting", notice);
}

bool isSameOrigin(const QUrl &one, const QUrl &other)
{
    const auto port = [](const QUrl &url) { return url.port(url.scheme() == u"https" ? 443 : 80); };
    return one.scheme() == other.scheme() && one.host() == other.host() && port(one) == port(other);
}

} // namespace

WebEnginePasting::WebEnginePasting(PasteQueue &queue, QObject *parent) : QObject(parent), m_queue(&queue) {}

WebEnginePasting::~WebEnginePasting()
{
    leaveQueue();
    if (m_page)
        m_page->setPasteGuard(nullptr);
}

/// Gives whether something was under way or waiting.
bool WebEnginePasting::leaveQueue()
{
    return m_queue && m_queue->drop(*this);
}

void WebEnginePasting::setPage(WebEnginePage &page)
{
    documentGoes();
    m_page = &page;
    m_page->setPasteGuard(this);
    m_state = State::Idle;
    m_isWaiting = false;
    m_frameLurks = false;
    ++m_command;
}

void WebEnginePasting::paste(const QString &text)
{
    if (m_queue)
        m_queue->add(*this, text);
}

void WebEnginePasting::documentGoes()
{
    const bool wasPasting = leaveQueue();
    expire();
    ++m_reading;
    if (wasPasting)
        Q_EMIT notice(told(pageLeft));
}

void WebEnginePasting::documentCame()
{
    m_frameLurks = false; // With the document before it, its frames have gone.
    m_page->watchForPastes();
    if (m_state == State::Expired)
        awaitAnswer();
}

void WebEnginePasting::mousePressed()
{
    m_lastPress = QDateTime::currentMSecsSinceEpoch();
}

void WebEnginePasting::begin(const QString &text, Done done)
{
    m_text = text;
    m_done = std::move(done);
    m_isWaiting = m_state != State::Idle;
    if (m_isWaiting)
        awaitAnswer();
    else
        tellPage();
}

void WebEnginePasting::tellPage()
{
    m_state = State::Told;
    m_outcome.clear();
    m_page->watchForPastes();
    m_page->triggerAction(QWebEnginePage::Paste); // At once, so that a click after the press comes after it.
    awaitAnswer();
}

/// A page that answers has begun to paste, or will within the grace, or never; but nobody knows when a frame
/// of another site does.
void WebEnginePasting::awaitAnswer()
{
    m_page->ask(focusIsForeign, [this, number = ++m_command](const QVariant &isForeign) {
        if (number != m_command)
            return;
        if (isForeign.toBool() && m_state == State::Told)
            return; // Until the queue's patience ends.
        if (m_state == State::Expired && isForeign.toBool())
            m_frameLurks = true;
        QTimer::singleShot(pasteGrace, this, [this, number] {
            if (number == m_command)
                pageAnswered();
        });
    });
}

void WebEnginePasting::pageAnswered()
{
    if (m_state == State::Told) {
        m_outcome = told(noField);
        finish();
    } else if (m_state == State::Expired) {
        becomeIdle();
    }
}

void WebEnginePasting::becomeIdle()
{
    m_state = State::Idle;
    if (std::exchange(m_isWaiting, false))
        QTimer::singleShot(0, this, [this] {
            if (m_state == State::Idle && m_done)
                tellPage();
        });
}

void WebEnginePasting::giveUp()
{
    expire();
    Q_EMIT notice(told(noAnswer));
}

void WebEnginePasting::expire()
{
    m_isWaiting = false;
    m_isAllowed = false;
    m_done = {};
    if (m_state != State::Idle)
        m_state = State::Expired;
}

bool WebEnginePasting::mayPaste(const PastePlace &place)
{
    if (m_frameLurks && isForeign(place)) {
        m_frameLurks = false;
        return false;
    }
    switch (m_state) {
    case State::Idle: // The author's own paste.
        ++m_reading;
        return true;
    case State::Told:
        m_state = State::Asked;
        m_isReadable = !isForeign(place);
        m_outcome = obstacle(place);
        m_isAllowed = m_outcome.isEmpty();
        if (m_isAllowed && place.kind != PastePlace::Kind::Text)
            m_outcome = place.kind == PastePlace::Kind::Locked ? told(lockedField) : told(noField);
        return m_isAllowed;
    case State::Asked:
        return m_isAllowed;
    case State::Expired:
        becomeIdle();
        return false;
    }
    return false;
}

bool WebEnginePasting::mayInsert()
{
    if (m_state == State::Idle || m_state == State::Told) // The author's own paste.
        return true;
    if (m_isAllowed && !clipboardHoldsText()) {
        m_isAllowed = false;
        m_outcome = told(otherClipboard);
    }
    return m_isAllowed;
}

void WebEnginePasting::pasteEnded()
{
    if (m_state == State::Asked)
        finish();
    else if (m_state == State::Expired)
        becomeIdle();
}

void WebEnginePasting::finish()
{
    m_state = State::Idle;
    ++m_command;
    ++m_reading;
    Q_EMIT notice(m_outcome);
    const bool isPasted = m_isAllowed && m_outcome.isEmpty();
    if (isPasted && m_isReadable)
        lookAgain({}, 0);
    else if (isPasted)
        Q_EMIT pasted(m_text);
    if (const auto done = std::exchange(m_done, {}))
        done();
}

/// Reads the field of the paste that has just ended, as long as there is no newer one; @p told is what the
/// author was told of it at the look before.
void WebEnginePasting::lookAgain(const QString &told, int look)
{
    const auto ifStillLast = [this, number = m_reading](auto act) {
        return [this, number, act](const auto &...given) {
            if (number == m_reading && m_page)
                act(given...);
        };
    };
    const auto take = ifStillLast([this, told, look, text = m_text](const QVariant &answer) {
        const auto reading = fieldReading(answer);
        const QString sentence = reading ? readBackNotice(*reading, text) : told;
        if (sentence != told)
            Q_EMIT notice(sentence);
        if (size_t(look) + 1 < looks.size())
            lookAgain(sentence, look + 1);
        else if (sentence.isEmpty())
            Q_EMIT pasted(text);
    });
    QTimer::singleShot(looks[size_t(look)], this, ifStillLast([this, take] { m_page->ask(readBack, take); }));
}

bool WebEnginePasting::isForeign(const PastePlace &place) const
{
    return !place.isMainFrame && !isSameOrigin(place.origin, m_page->url());
}

/// Why the value must not go to @p place; empty when it may.
QString WebEnginePasting::obstacle(const PastePlace &place) const
{
    if (!clipboardHoldsText())
        return told(otherClipboard);
    const bool wasPressed = place.lastPress > 0 && place.lastPress >= m_lastPress;
    if (isForeign(place) && !wasPressed)
        return told(foreignFrame).arg(unmistakableHost(place.origin));
    return {};
}

bool WebEnginePasting::clipboardHoldsText() const
{
    return QGuiApplication::clipboard()->text() == m_text;
}

} // namespace quillon
