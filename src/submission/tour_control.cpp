#include "submission/tour_control.h"

#include "store/storage_status.h"
#include "submission/submit_control.h"

using namespace Qt::StringLiterals;

namespace quillon {

TourControl::TourControl(SubmitControl &control) : m_control(control)
{
    connect(&control, &SubmitControl::siteChosen, this, &TourControl::follow);
    connect(&control, &SubmitControl::hindranceChanged, this, &TourControl::refreshSoon);
    connect(&control.sites(), &SubmissionSites::textsChanged, this, &TourControl::refreshSoon);
    refreshSoon();
}

/// What changes a mark tells of several changes, one after the other.
void TourControl::refreshSoon()
{
    if (std::exchange(m_isStale, true))
        return;
    QMetaObject::invokeMethod(
        this,
        [this] {
            if (m_isStale)
                refresh();
        },
        Qt::QueuedConnection);
}

void TourControl::refresh()
{
    m_isStale = false;
    const bool wasOffered = isOffered();
    const QString before = m_line;
    m_tour.reset();
    m_line.clear();
    if (m_control.title()) {
        auto tour = Tour::of(*m_control.title());
        if (tour)
            m_tour = *std::move(tour);
        else if (!tour.isError(Error::Kind::Missing))
            m_line = tr("What is to be brought up to date is not known. %1").arg(failureLine(tour.error()));
    }
    if (isOffered())
        m_line = newLine();
    if (m_line != before || isOffered() != wasOffered)
        Q_EMIT changed();
}

bool TourControl::isAtStop() const
{
    return m_control.sites().selectedSite() == m_tour->at();
}

QString TourControl::newLine() const
{
    return tourLine(*m_tour, m_tour->stop(m_tour->at()), isAtStop(), QLocale());
}

void TourControl::follow()
{
    refresh();
    const QString site = m_control.sites().selectedSite();
    if (!isOffered() || isAtStop() || !m_tour->isLeft(site))
        return;
    (void)m_tour->goTo(site); // The status bar tells.
    refresh();
}

void TourControl::next()
{
    refresh();
    if (!isOffered())
        return;
    if (isAtStop())
        (void)m_tour->goTo(m_tour->after(m_tour->at())); // Likewise.
    goToStop();
}

void TourControl::answer(tours::Answer answer)
{
    refresh();
    if (!isOffered())
        return;
    const bool wasAtStop = isAtStop();
    (void)m_tour->answer(m_tour->at(), answer); // Likewise.
    if (wasAtStop)
        goToStop();
    refresh();
}

void TourControl::goToStop()
{
    if (!m_tour->at().isEmpty())
        m_control.goToSite(m_tour->at());
}

} // namespace quillon
