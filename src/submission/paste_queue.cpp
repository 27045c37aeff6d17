#include "submission/paste_queue.h"

#include <QPointer>

#include <utility>

namespace quillon {

PasteQueue::PasteQueue(QObject *parent) : QObject(parent)
{
    m_patience.setSingleShot(true);
    m_patience.setInterval(patience);
    connect(&m_patience, &QTimer::timeout, this, &PasteQueue::giveUp);
}

void PasteQueue::add(Paste paste)
{
    m_waiting.push_back(std::move(paste));
    if (!m_current)
        startNext();
}

bool PasteQueue::drop(const void *page)
{
    std::function<void()> fillWithLast;
    const auto dropped = std::erase_if(m_waiting, [&](const Paste &each) {
        if (each.page == page)
            fillWithLast = each.fillClipboard;
        return each.page == page;
    });
    const bool wasCurrent = m_current && m_current->page == page;
    if (wasCurrent)
        m_current.reset();
    if (!m_current && m_waiting.empty() && fillWithLast)
        fillWithLast();
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
    m_current->fillClipboard();
    m_patience.start();
    const auto begin = m_current->begin; // The paste may be done, and gone, before this has returned.
    begin([self = QPointer(this), number = ++m_number] {
        if (self && self->m_current && number == self->m_number)
            self->startNext();
    });
}

void PasteQueue::giveUp()
{
    if (const auto late = std::exchange(m_current, std::nullopt))
        late->giveUp();
    if (!m_current)
        startNext();
}

} // namespace quillon
