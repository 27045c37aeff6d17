#pragma once

#include <QDialog>

class QLabel;
class QLineEdit;
class QPushButton;

namespace quillon {

class TitleCommands;

/// The panel that asks for a title's name, opened and closed as TitleCommands says.
class NamePanelView : public QDialog
{
    Q_OBJECT
public:
    NamePanelView(TitleCommands &commands, QWidget *parent);

    /// Shows the panel as it is now, or hides it; later changes are shown by themselves.
    void showPanel();
    void reject() override;

private:
    TitleCommands &m_commands;
    QLabel *m_message;
    QLabel *m_inputMessage;
    QLineEdit *m_input;
    QPushButton *m_skipAllButton = nullptr;
    QPushButton *m_okButton;
};

} // namespace quillon
