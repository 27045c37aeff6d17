#pragma once

#include "journal/site_knowledge.h"

#include <QDialog>

class QCheckBox;
class QLabel;
class QLineEdit;
class QPushButton;

namespace quillon {

/// What the author learned of a site, for all titles; above it what the last visit found there.
class SiteNotesDialog : public QDialog
{
    Q_OBJECT
public:
    SiteNotesDialog(const QString &site, QWidget *parent);

Q_SIGNALS:
    /// Something was noted.
    void stored();

private:
    void fillIn(const site_knowledge::KnownSite &known);
    void store();

    const QString m_site;
    QLabel *m_found;
    QLineEdit *m_note;
    QCheckBox *m_needsAccount;
    QCheckBox *m_readsPad;
    QCheckBox *m_isGone;
    QLabel *m_outcome;
    QPushButton *m_save;
};

} // namespace quillon
