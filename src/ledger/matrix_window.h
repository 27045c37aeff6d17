#pragma once

#include "ledger/matrix_table.h"

#include <QDialog>

class QCheckBox;
class QComboBox;
class QLabel;
class QLineEdit;
class QTableView;

namespace quillon {

/// Which version of each title is on which site, and the way there. It follows the marks as they are made.
class MatrixWindow : public QDialog
{
    Q_OBJECT
public:
    explicit MatrixWindow(QWidget *parent);
    ~MatrixWindow() override;

    /// Reads everything anew; the title and the site that are selected stay so while they are shown.
    void load();

Q_SIGNALS:
    /// The author wants to submit @p title to @p site.
    void siteChosen(const QString &title, const QString &site);

private:
    QWidget *newFilterRow();
    QWidget *newTable();
    QWidget *newBottomRow();
    void filter();
    void sortBy(int choice);
    void showSort(int column);
    void choose(const QModelIndex &index);
    void showCount();

    MatrixTable *m_matrix;
    QLineEdit *m_titleFilter = nullptr;
    QLineEdit *m_siteFilter = nullptr;
    QCheckBox *m_onlyStale = nullptr;
    QComboBox *m_sort = nullptr;
    QTableView *m_table = nullptr;
    QLabel *m_count = nullptr;
    QString m_failures;
};

} // namespace quillon
