#include "submission/paste_queue.h"

#include "platform/desktop.h"

#include <QPointer>

#include <utility>

namespace quillon {

PasteQueue::PasteQueue(Desktop &desktop, QObject *parent) : QObject(parent), m_desktop(desktop)
{
    m_patience.setSingleShot(true);
    m_patience.setInterval(patience);
    connect(&m_patience, &QTimer::timeout, this, &PasteQueue::giveUp);
}

void PasteQueue::add(PasteTarget &target, const QString &text)
{
    m_waiting.push_back({.target = &target, .text = text});
    if (!m_current)
        startNext();
}

bool PasteQueue::drop(const PasteTarget &target)
{
    std::optional<QString> last;
    const auto dropped = std::erase_if(m_waiting, [&](const Paste &each) {
        if (each.target == &target)
            last = each.text;
        return each.target == &target;
    });
    const bool wasCurrent = m_current && m_current->target == &target;
    if (wasCurrent)
        m_current.reset();
    if (!m_current && m_waiting.empty() && last)
        m_desktop.setClipboardText(*last);
    if (!m_current)
        startNext();
    return wasCurrent || dropped > 0;
}

void PasteQueue::startNext()
{
    m_patience.stop();
    m_current.reset();
    if (m_waiting.empty())
        return;
    m_current = std::move(m_waiting.front());
    m_waiting.pop_front();
    m_desktop.setClipboardText(m_current->text);
    m_patience.start();
    const Paste current = *m_current; // It may be done, and gone, before this has returned.
    current.target->begin(current.text, [self = QPointer(this), number = ++m_number] {
        if (self && self->m_current && number == self->m_number)
            self->startNext();
    });
}

void PasteQueue::giveUp()
{
    if (const auto late = std::exchange(m_current, std::nullopt))
        late->target->giveUp();
    if (!m_current)
        startNext();
}

} // namespace quillon
