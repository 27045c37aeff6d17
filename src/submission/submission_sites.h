#pragma once

#include "submission/submission_sites_table.h"

#include <QObject>

namespace quillon {

/// The sites of the submission window, where the selected title stands with each, and the one that the author
/// is at.
class SubmissionSites : public QObject
{
    Q_OBJECT
public:
    using QObject::QObject;

    /// Takes the names of the process's site catalogue; the table does not show them yet.
    void takeCatalogue();
    /// Shows the sites with the state that @p summary gives each.
    void showMarks(const Summary &summary);
    /// Shows the sites without a state.
    void forgetMarks();
    /// Selects the first site, if there is any, and otherwise keeps the site that is selected, wherever it
    /// stands now; without it, none is selected.
    void selectFirst();
    void keepSelection();
    /// Selects the site in @p row, -1 for none. Whether that is another site than before.
    bool select(int row);
    /// The same by its name, and shows it.
    bool selectSite(const QString &site);

    /// Says which site is selected, and offers to mark it.
    void showSelected();
    /// Offers to mark the selected site, or to mark it anew.
    void setMarkSubmittedButtonTitle(bool isMarked);

    [[nodiscard]] const QStringList &allSitesArray() const { return m_allSitesArray; }
    /// The state of each site; empty when it is not known.
    [[nodiscard]] const QList<SiteState> &submittedToArray() const { return m_submittedToArray; }
    /// "1" for each site that the title is marked for, in any version, else "0".
    [[nodiscard]] const QStringList &submittedToArraySTR() const { return m_submittedToArraySTR; }
    [[nodiscard]] SubmissionSitesTable &table() { return m_table; }
    /// -1 when none is selected.
    [[nodiscard]] int selectedRow() const { return m_table.rowOf(m_selectedSite); }
    /// Null when none is selected.
    [[nodiscard]] QString selectedSite() const { return m_selectedSite; }
    /// Whether the title is marked for the selected site, in any version.
    [[nodiscard]] bool isMarked() const;
    [[nodiscard]] QString submittingToField() const { return m_submittingToField; }
    [[nodiscard]] QString markSubmittedButtonTitle() const { return m_markSubmittedButtonTitle; }

Q_SIGNALS:
    /// The row to be shown as selected; -1 for none.
    void selectedRowChanged(int row);
    /// One of the two texts is another one.
    void textsChanged();

private:
    SubmissionSitesTable m_table;
    QStringList m_allSitesArray;
    QList<SiteState> m_submittedToArray;
    QStringList m_submittedToArraySTR;
    QString m_selectedSite;
    QString m_submittingToField;
    QString m_markSubmittedButtonTitle = tr("Mark As Submitted");
};

} // namespace quillon
