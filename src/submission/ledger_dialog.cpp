#include "submission/ledger_dialog.h"

#include "editor/pop_up_accessible.h"
#include "ledger/ledger_editing.h"
#include "platform/dates.h"
#include "platform/plain_text.h"
#include "platform/translated_text.h"
#include "store/storage_status.h"
#include "widgets/announcement.h"
#include "widgets/row_table.h"

#include <QComboBox>
#include <QDialogButtonBox>
#include <QFormLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QStandardItemModel>
#include <QTableView>

#include <array>

using namespace Qt::StringLiterals;

namespace quillon {

namespace {

constexpr QSize dialogSize(640, 420);

/// In the order of ledger::State.
constexpr std::array<QStringView, 5> stateTexts = {
    QUILLON_TR_NOOP("LedgerDialog", "Sent"), QUILLON_TR_NOOP("LedgerDialog", "Listed"),
    QUILLON_TR_NOOP("LedgerDialog", "Refused"), QUILLON_TR_NOOP("LedgerDialog", "The site is gone"),
    QUILLON_TR_NOOP("LedgerDialog", "Mark removed")};
constexpr qsizetype choosableStates = 4;

void appendRow(QStandardItemModel &rows, const ledger::Entry &entry)
{
    QList<QStandardItem *> items;
    for (const QString &text :
         {dates::shortTime(entry.time), entry.version,
          translated("LedgerDialog", stateTexts[size_t(entry.state)]), entry.address, entry.note}) {
        auto *item = new QStandardItem(text);
        item->setToolTip(plainToolTip(text));
        items.append(item);
    }
    rows.insertRow(0, items);
}

QLineEdit *newField(const QString &name, const QString &accessibleName)
{
    auto *field = new QLineEdit;
    field->setObjectName(name);
    field->setAccessibleName(accessibleName);
    return field;
}

} // namespace

LedgerDialog::LedgerDialog(const QString &title, const QString &site, QWidget *parent)
    : QDialog(parent)
    , m_ofTitle(title)
    , m_site(site)
    , m_state(new NamedPopUp)
    , m_address(newField(u"ledgerAddress"_s, tr("Address of the listing")))
    , m_note(newField(u"ledgerNote"_s, tr("Note")))
    , m_outcome(new QLabel)
{
    setObjectName(u"ledgerDialog"_s);
    setAttribute(Qt::WA_DeleteOnClose);
    setWindowModality(Qt::WindowModal);
    setWindowTitle(plainWindowTitle(tr("%1 on %2").arg(title, site)));
    m_state->setObjectName(u"ledgerState"_s);
    m_state->setAccessibleName(tr("State"));
    for (qsizetype state = 0; state < choosableStates; ++state)
        m_state->addItem(translated("LedgerDialog", stateTexts[size_t(state)]));
    m_outcome->setObjectName(u"ledgerOutcome"_s);
    m_outcome->setTextFormat(Qt::PlainText);
    m_outcome->setWordWrap(true);
    auto *buttons = new QDialogButtonBox(QDialogButtonBox::Save | QDialogButtonBox::Cancel);
    connect(buttons, &QDialogButtonBox::accepted, this, &LedgerDialog::store);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::close);

    auto *layout = new QFormLayout(this);
    layout->addRow(tr("S&tate:"), m_state);
    layout->addRow(tr("&Address:"), m_address);
    layout->addRow(tr("&Note:"), m_note);
    layout->addRow(newEntries());
    layout->addRow(m_outcome);
    layout->addRow(buttons);
    resize(dialogSize);
    m_state->setFocus();
}

QWidget *LedgerDialog::newEntries()
{
    QTableView *table = newRowTable(u"ledgerEntries"_s, tr("What was noted before"), this);
    auto *rows = new QStandardItemModel(table);
    rows->setHorizontalHeaderLabels({tr("When"), tr("Version"), tr("State"), tr("Address"), tr("Note")});
    const auto read = ledger_editing::read(m_ofTitle);
    const ledger_editing::Ledger present = read.valueOr({});
    for (const ledger::Entry &entry : present.entries) {
        if (entry.site == m_site)
            appendRow(*rows, entry);
    }
    if (const Standing *there = standingAt(present.standings, m_site)) {
        m_state->setCurrentIndex(int(there->state));
        m_address->setText(there->address);
        m_note->setText(there->note);
    } else if (!read) {
        m_outcome->setText(failureSentence(read.error()));
    }
    table->setModel(rows);
    table->resizeColumnsToContents();
    stretchLastColumn(*table);
    return captioned(new QLabel(tr("Noted &before:")), table);
}

void LedgerDialog::store()
{
    const auto entry = ledger_editing::planned(m_ofTitle, {.site = m_site,
                                                           .state = ledger::State(m_state->currentIndex()),
                                                           .address = m_address->text().trimmed(),
                                                           .note = m_note->text()});
    const Result<> done = entry ? ledger_editing::store(m_ofTitle, *entry) : Result<>(entry.error());
    if (!done) {
        m_outcome->setText(failureSentence(done.error()));
        announce(*this, m_outcome->text());
        return;
    }
    Q_EMIT stored();
    close();
}

} // namespace quillon
