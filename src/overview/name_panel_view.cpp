#include "overview/name_panel_view.h"

#include "overview/title_commands.h"
#include "platform/plain_text.h"
#include "widgets/button_box.h"
#include "widgets/validation_palette.h"

#include <QDialogButtonBox>
#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>

using namespace Qt::StringLiterals;

namespace quillon {

NamePanelView::NamePanelView(TitleCommands &commands, QWidget *parent)
    : QDialog(parent)
    , m_commands(commands)
    , m_message(new QLabel)
    , m_inputMessage(new QLabel)
    , m_input(new QLineEdit)
{
    setObjectName(u"swNamePanel"_s);
    setWindowModality(Qt::WindowModal);
    m_message->setObjectName(u"swNamePanelMessage"_s);
    m_message->setTextFormat(Qt::PlainText);
    m_message->setWordWrap(true);
    m_message->setMinimumWidth(380);
    m_inputMessage->setObjectName(u"swNamePanelInputMessage"_s);
    m_inputMessage->setTextFormat(Qt::PlainText);
    m_inputMessage->setBuddy(m_input);
    m_input->setObjectName(u"swNamePanelInput"_s);

    auto *buttons = new QDialogButtonBox(QDialogButtonBox::Cancel);
    m_okButton = buttons->addButton(QString(), QDialogButtonBox::AcceptRole);
    m_okButton->setObjectName(u"swNamePanelOKButton"_s);

    m_skipAllButton = buttons->addButton(tr("&Skip All"), QDialogButtonBox::ResetRole);
    m_skipAllButton->setObjectName(u"skipAllButton"_s);
    m_skipAllButton->setToolTip(tr("Import none of the files that still need a name"));
    connect(m_skipAllButton, &QPushButton::clicked, &commands, &TitleCommands::skipImports);

    auto *layout = new QGridLayout(this);
    layout->addWidget(m_message, 0, 0, 1, 2);
    layout->addWidget(m_inputMessage, 1, 0);
    layout->addWidget(m_input, 1, 1);
    layout->addWidget(buttons, 2, 0, 1, 2);
    orderForTab(*buttons);
    m_okButton->setDefault(true); // Only a button that lies in its dialog can be the default one.

    connect(buttons, &QDialogButtonBox::accepted, this,
            [this] { m_commands.addSWNPIAction(m_input->text()); });
    connect(buttons, &QDialogButtonBox::rejected, this, &NamePanelView::reject);
    connect(&commands, &TitleCommands::namePanelChanged, this, &NamePanelView::showPanel);
}

void NamePanelView::reject()
{
    m_commands.cancelSWNPIAction();
}

void NamePanelView::showPanel()
{
    const std::optional<NamePanel> &panel = m_commands.namePanel();
    if (!panel) {
        hide();
        parentWidget()->activateWindow(); // Else the focus would stay on a button of the hidden panel.
        return;
    }
    setWindowTitle(panel->file.isEmpty() ? u"Quillon"_s : plainWindowTitle(panel->file));
    m_message->setText(panel->swNamePanelMessage);
    setValidationColour(*m_message, panel->messageIsError ? Colour::Red : Colour::Black);
    setAccessibleName(panel->swNamePanelMessage);
    m_inputMessage->setText(panel->swNamePanelInputMessage);
    m_input->setAccessibleName(panel->swNamePanelInputMessage.trimmed());
    m_input->setText(panel->swNamePanelInput);
    m_input->selectAll();
    m_input->setFocus();
    m_okButton->setText(panel->swNamePanelOKButton);
    m_skipAllButton->setVisible(panel->hasMore);
    adjustSize(); // Its texts may be longer than the last time.
    open();
}

} // namespace quillon
