#pragma once

#include <QDialog>

class QPushButton;
class QTableView;

namespace quillon {

class DeletedTitles;

/// The window of what was deleted and can be brought back. It opens as the controller says.
class DeletedTitlesWindow : public QDialog
{
    Q_OBJECT
public:
    DeletedTitlesWindow(DeletedTitles &deleted, QWidget *parent);
    ~DeletedTitlesWindow() override;

private:
    QLayout *newBottomRow();
    void showSelected();
    [[nodiscard]] int selectedRow() const;

    DeletedTitles &m_deleted;
    QTableView *m_table;
    QPushButton *m_restore = nullptr;
    QPushButton *m_forget = nullptr;
};

} // namespace quillon
