#pragma once

#include <QDialog>

class QComboBox;
class QLabel;
class QLineEdit;

namespace quillon {

/// What became of a title on a site: the author notes its state, the address of the listing and a note, and
/// sees what was noted before.
class LedgerDialog : public QDialog
{
    Q_OBJECT
public:
    LedgerDialog(const QString &title, const QString &site, QWidget *parent);

Q_SIGNALS:
    /// Something was noted.
    void stored();

private:
    QWidget *newEntries();
    void store();

    const QString m_ofTitle;
    const QString m_site;
    QComboBox *m_state;
    QLineEdit *m_address;
    QLineEdit *m_note;
    QLabel *m_outcome;
};

} // namespace quillon
