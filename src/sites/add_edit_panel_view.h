#pragma once

#include <QDialog>

class QLabel;
class QLineEdit;
class QPushButton;

namespace quillon {

class PreferencesController;

/// The panel in which a site's name and address are typed, opened and closed as PreferencesController says.
class AddEditPanelView : public QDialog
{
    Q_OBJECT
public:
    AddEditPanelView(PreferencesController &preferences, QWidget *parent);

    void reject() override;

private:
    void showPanel();

    PreferencesController &m_preferences;
    QLabel *m_title;
    QLineEdit *m_siteName;
    QLineEdit *m_siteUrl;
    QPushButton *m_addSaveButton;
};

} // namespace quillon
