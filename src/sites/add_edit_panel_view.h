#pragma once

#include <QDialog>

class QLabel;
class QLineEdit;
class QPushButton;

namespace quillon {

class AddEditPanel;

/// The panel in which a site's name and address are typed, opened and closed as AddEditPanel says.
class AddEditPanelView : public QDialog
{
    Q_OBJECT
public:
    AddEditPanelView(AddEditPanel &panel, QWidget *parent);

    void reject() override;

private:
    void showPanel();

    AddEditPanel &m_panel;
    QLabel *m_title;
    QLineEdit *m_siteName;
    QLineEdit *m_siteUrl;
    QPushButton *m_addSaveButton;
};

} // namespace quillon
