#include "sites/add_edit_panel_view.h"

#include "sites/add_edit_panel.h"
#include "store/storage_status.h"
#include "widgets/button_box.h"
#include "widgets/failed_writes_label.h"

#include <QDialogButtonBox>
#include <QFormLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>

using namespace Qt::StringLiterals;

namespace quillon {

namespace {

constexpr int fieldWidth = 420;

QLineEdit *newField(const QString &name, const QString &accessibleName)
{
    auto *field = new QLineEdit;
    field->setObjectName(name);
    field->setAccessibleName(accessibleName);
    field->setMinimumWidth(fieldWidth);
    return field;
}

} // namespace

AddEditPanelView::AddEditPanelView(AddEditPanel &panel, QWidget *parent)
    : QDialog(parent)
    , m_panel(panel)
    , m_title(new QLabel)
    , m_siteName(newField(u"siteNameField"_s, tr("Name")))
    , m_siteUrl(newField(u"siteURLField"_s, tr("URL")))
{
    setObjectName(u"addEditPanel"_s);
    setWindowModality(Qt::WindowModal);
    m_title->setObjectName(u"addEditPanelTitle"_s);
    m_title->setTextFormat(Qt::PlainText);
    QFont font = m_title->font();
    font.setBold(true);
    m_title->setFont(font);
    m_siteUrl->setPlaceholderText(tr("The page on which the site takes submissions"));
    m_siteUrl->setInputMethodHints(Qt::ImhUrlCharactersOnly);

    auto *buttons = new QDialogButtonBox(QDialogButtonBox::Cancel);
    m_addSaveButton = buttons->addButton(QString(), QDialogButtonBox::AcceptRole);
    m_addSaveButton->setObjectName(u"addSaveButton"_s);

    auto *layout = new QFormLayout(this);
    layout->addRow(m_title);
    layout->addRow(tr("&Name:"), m_siteName);
    layout->addRow(tr("&URL:"), m_siteUrl);
    layout->addRow(new FailedWritesLabel(u"panelFailedWrites"_s, failedWritesLine, this));
    layout->addRow(buttons);
    m_addSaveButton->setDefault(true);
    orderForTab(*buttons);

    connect(buttons, &QDialogButtonBox::accepted, this,
            [this] { m_panel.addSaveButtonAction(m_siteName->text(), m_siteUrl->text()); });
    connect(buttons, &QDialogButtonBox::rejected, this, &AddEditPanelView::reject);
    connect(&panel, &AddEditPanel::changed, this, &AddEditPanelView::showPanel);
}

void AddEditPanelView::reject()
{
    m_panel.cancelAddEditAction();
}

void AddEditPanelView::showPanel()
{
    const AddEditPanelContent &panel = m_panel.content();
    if (!panel.isOpen) {
        hide();
        return;
    }
    m_title->setText(panel.addEditPanelTitle);
    setWindowTitle(panel.addEditPanelTitle);
    m_siteName->setText(panel.siteNameField);
    m_siteUrl->setText(panel.siteURLField);
    m_addSaveButton->setText(panel.addEditSentFrom == u"add" ? tr("&Add") : tr("&Save"));
    QLineEdit *field = panel.focus == AddEditPanelContent::Field::Url ? m_siteUrl : m_siteName;
    field->setFocus();
    open();
    // A window that opens selects its first field's text by itself.
    if (panel.selectsWholeText)
        field->selectAll();
    else
        field->end(false);
}

} // namespace quillon
