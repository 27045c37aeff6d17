#include "submission/paste_queue.h"

#include <QPointer>

namespace quillon {

PasteQueue::PasteQueue(Paste paste, QObject *parent) : QObject(parent), m_paste(std::move(paste))
{
    m_patience.setSingleShot(true);
    m_patience.setInterval(patience);
    connect(&m_patience, &QTimer::timeout, this, &PasteQueue::startNext);
}

void PasteQueue::add(std::function<void()> fillClipboard)
{
    m_waiting.push(std::move(fillClipboard));
    if (!m_isPasting)
        startNext();
}

void PasteQueue::clear()
{
    m_patience.stop();
    m_isPasting = false;
    ++m_current;
    if (m_waiting.empty())
        return;
    m_waiting.back()();
    m_waiting = {};
}

void PasteQueue::startNext()
{
    m_patience.stop();
    m_isPasting = !m_waiting.empty();
    if (!m_isPasting)
        return;
    m_waiting.front()();
    m_waiting.pop();
    m_patience.start();
    m_paste([self = QPointer(this), number = ++m_current] {
        if (self && self->m_isPasting && number == self->m_current)
            self->startNext();
    });
}

} // namespace quillon
