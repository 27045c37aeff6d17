#include "submission/web_engine_watch.h"

#include "submission/web_engine_page.h"

#include <chrono>
#include <csignal>

using namespace Qt::StringLiterals;

namespace quillon {

namespace {

constexpr std::chrono::seconds lookInterval{1};
/// How long a page may owe an answer.
constexpr std::chrono::milliseconds patience{5000};

} // namespace

WebEngineWatch::WebEngineWatch(QObject *parent) : QObject(parent)
{
    connect(&m_looks, &QTimer::timeout, this, &WebEngineWatch::look);
    connect(&m_looks, &QTimer::timeout, this, &WebEngineWatch::looked);
}

void WebEngineWatch::setRunning(bool isRunning)
{
    takeAnswer();
    if (isRunning)
        m_looks.start(lookInterval);
    else
        m_looks.stop();
}

void WebEngineWatch::setPage(WebEnginePage &page)
{
    m_page = &page;
    takeAnswer();
    connect(&page, &QWebEnginePage::renderProcessTerminated, this, &WebEngineWatch::takeAnswer);
}

void WebEngineWatch::look()
{
    if (m_page->isAsking() || m_page->renderProcessPid() == 0) {
        takeAnswer();
        return;
    }
    if (!m_sinceQuestion.isValid())
        m_sinceQuestion.start();
    else if (m_sinceQuestion.hasExpired(patience.count()))
        setHangs(true);
    // Each time anew: what a document was asked that was left meanwhile, nobody answers.
    m_page->ask(u"0"_s, [this, question = m_question](const QVariant &) {
        if (question == m_question)
            takeAnswer();
    });
}

void WebEngineWatch::takeAnswer()
{
    ++m_question;
    m_sinceQuestion.invalidate();
    setHangs(false);
}

void WebEngineWatch::setHangs(bool hangs)
{
    if (std::exchange(m_hangs, hangs) != hangs)
        Q_EMIT hangChanged(hangs);
}

void WebEngineWatch::endProcess()
{
    if (const auto process = pid_t(m_page->renderProcessPid()); process > 0)
        kill(process, SIGKILL);
}

} // namespace quillon
