#pragma once

#include "submission/form_filling.h"

#include <QDialog>

class QComboBox;
class QLabel;
class QPushButton;
class QTableView;

namespace quillon {

/// What is proposed for the fields of the page, to be ticked and corrected; after "Fill" what became of each.
class FormFillingWindow : public QDialog
{
    Q_OBJECT
public:
    /// @p browser must outlive the window; @p site as for FormFilling.
    FormFillingWindow(Browser &browser, const QString &site, QWidget *parent);

private:
    QWidget *newChoice();
    QWidget *newButtons();
    void showSummary();
    void showLook();
    void showResult();
    void showRow();
    void showStates();
    [[nodiscard]] int currentRow() const;

    FormFilling *m_filling;
    QLabel *m_summary;
    QTableView *m_table;
    QComboBox *m_value;
    QPushButton *m_fill;
    QPushButton *m_close;
};

} // namespace quillon
