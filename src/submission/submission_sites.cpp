#include "submission/submission_sites.h"

#include "store/process_state.h"

using namespace Qt::StringLiterals;

namespace quillon {

void SubmissionSites::takeCatalogue()
{
    m_allSitesArray.clear();
    for (const auto &[site, url] : mwqnSCPreallSitesDict)
        m_allSitesArray.append(site);
}

void SubmissionSites::showMarks(const Summary &summary)
{
    m_submittedToArray = siteStates(m_allSitesArray, summary);
    m_submittedToArraySTR.clear();
    for (const SiteState state : std::as_const(m_submittedToArray))
        m_submittedToArraySTR.append(state == SiteState::NotValidated ? u"0"_s : u"1"_s);
    m_table.setSites(m_allSitesArray, m_submittedToArray);
}

void SubmissionSites::forgetMarks()
{
    m_submittedToArray.clear();
    m_submittedToArraySTR.clear();
    m_table.setSites(m_allSitesArray, m_submittedToArray);
    keepSelection();
}

void SubmissionSites::selectFirst()
{
    m_selectedSite = m_allSitesArray.value(0);
    Q_EMIT selectedRowChanged(selectedRow());
}

void SubmissionSites::keepSelection()
{
    if (!m_allSitesArray.contains(m_selectedSite))
        m_selectedSite.clear();
    // Views lose the selection when all rows are new.
    Q_EMIT selectedRowChanged(selectedRow());
}

bool SubmissionSites::select(int row)
{
    const QString before = std::exchange(m_selectedSite, m_table.siteAt(row));
    return m_selectedSite != before;
}

bool SubmissionSites::selectSite(const QString &site)
{
    const bool isAnother = select(m_table.rowOf(site));
    Q_EMIT selectedRowChanged(selectedRow());
    return isAnother;
}

bool SubmissionSites::isMarked() const
{
    return m_submittedToArraySTR.value(selectedRow()) == u"1";
}

void SubmissionSites::showSelected()
{
    setMarkSubmittedButtonTitle(isMarked());
    m_submittingToField = tr("Submitting To %1").arg(m_selectedSite);
    Q_EMIT textsChanged();
}

void SubmissionSites::setMarkSubmittedButtonTitle(bool isMarked)
{
    m_markSubmittedButtonTitle = isMarked ? tr("Mark Re-Submitted") : tr("Mark As Submitted");
    Q_EMIT textsChanged();
}

} // namespace quillon
