#include "submission/form_filling_window.h"

#include "editor/pop_up_accessible.h"
#include "platform/plain_text.h"
#include "widgets/announcement.h"
#include "widgets/row_table.h"

#include <QBoxLayout>
#include <QComboBox>
#include <QLabel>
#include <QPushButton>
#include <QTableView>

using namespace Qt::StringLiterals;

namespace quillon {

namespace {

constexpr QSize firstSize(700, 420);

} // namespace

FormFillingWindow::FormFillingWindow(Browser &browser, const QString &site, QWidget *parent)
    : QDialog(parent)
    , m_filling(new FormFilling(browser, site, this))
    , m_summary(new QLabel(tr("Looking at the page…")))
    , m_table(newRowTable(u"formFields"_s, tr("Fields of the page"), this))
    , m_value(new NamedPopUp)
    , m_fill(new QPushButton(tr("&Fill")))
    , m_close(new QPushButton(tr("&Close")))
{
    setObjectName(u"formFillingWindow"_s);
    setAttribute(Qt::WA_DeleteOnClose);
    setWindowTitle(site.isEmpty() ? tr("Fill a Form") : tr("Fill a Form – %1").arg(plainWindowTitle(site)));
    resize(firstSize);
    move(parent->mapToGlobal(parent->rect().bottomRight()) -
         rect().bottomRight()); // The page stays in sight.
    m_summary->setObjectName(u"formSummary"_s);
    m_summary->setTextFormat(Qt::PlainText);
    m_summary->setWordWrap(true);
    m_table->setModel(m_filling);
    stretchLastColumn(*m_table);
    setColumnWidths(*m_table, {19, 17, 20, 22, 15});
    m_table->setColumnHidden(FormFilling::Outcome, true);

    auto *layout = new QVBoxLayout(this);
    layout->addWidget(m_summary);
    layout->addWidget(m_table, 1);
    layout->addWidget(newChoice());
    layout->addWidget(newButtons());

    connect(m_filling, &FormFilling::looked, this, &FormFillingWindow::showLook);
    connect(m_filling, &FormFilling::filled, this, &FormFillingWindow::showResult);
    connect(m_filling, &FormFilling::dataChanged, this, &FormFillingWindow::showStates);
    connect(m_table->selectionModel(), &QItemSelectionModel::currentRowChanged, this,
            &FormFillingWindow::showRow);
    showStates();
    m_filling->look();
}

QWidget *FormFillingWindow::newChoice()
{
    auto *row = new QWidget;
    auto *layout = new QHBoxLayout(row);
    layout->setContentsMargins(0, 0, 0, 0);
    auto *caption = new QLabel(tr("&Value for the selected field:"));
    caption->setBuddy(m_value);
    m_value->setObjectName(u"formValue"_s);
    m_value->setAccessibleName(tr("Value for the selected field"));
    layout->addWidget(caption);
    layout->addWidget(m_value, 1);
    connect(m_value, &QComboBox::activated, this,
            [this] { m_filling->choose(currentRow(), m_value->currentData().toString()); });
    return row;
}

QWidget *FormFillingWindow::newButtons()
{
    auto *row = new QWidget;
    auto *layout = new QHBoxLayout(row);
    layout->setContentsMargins(0, 0, 0, 0);
    m_fill->setObjectName(u"fillButton"_s);
    m_fill->setToolTip(tr("Types what is ticked into the page; nothing is sent"));
    m_fill->setDefault(true);
    m_close->setObjectName(u"closeFilling"_s);
    m_close->setAutoDefault(false);
    layout->addStretch(1);
    layout->addWidget(m_fill);
    layout->addWidget(m_close);
    connect(m_fill, &QPushButton::clicked, m_filling, &FormFilling::fill);
    connect(m_close, &QPushButton::clicked, this, &FormFillingWindow::close);
    return row;
}

int FormFillingWindow::currentRow() const
{
    return m_table->currentIndex().isValid() ? m_table->currentIndex().row() : -1;
}

void FormFillingWindow::showSummary()
{
    m_summary->setText(m_filling->summary());
    announce(*this, m_filling->summary());
}

void FormFillingWindow::showLook()
{
    showSummary();
    if (m_filling->rowCount() > 0)
        m_table->setCurrentIndex(m_filling->index(0, FormFilling::Field));
    m_table->setFocus();
    showStates();
}

void FormFillingWindow::showResult()
{
    showSummary();
    m_table->setColumnHidden(FormFilling::Why, true);
    showStates();
    m_close->setDefault(true);
    m_close->setFocus();
}

void FormFillingWindow::showRow()
{
    m_value->clear();
    const int row = currentRow();
    if (row < 0)
        return;
    m_value->addItem(tr("Nothing"), QString());
    const QList<TitleValue> values = m_filling->valuesFor(row);
    for (const TitleValue &value : values)
        m_value->addItem(u"%1: %2"_s.arg(value.caption, plainLine(value.shown(), 80)), value.id);
    m_value->setCurrentIndex(std::max(0, m_value->findData(m_filling->valueOf(row))));
}

void FormFillingWindow::showStates()
{
    m_fill->setEnabled(m_filling->canFill());
    m_value->setEnabled(m_filling->isChoosing());
    if (m_filling->isTyping())
        m_table->setColumnHidden(FormFilling::Outcome, false);
}

} // namespace quillon
