#include "submission/site_notes_dialog.h"

#include "journal/journal.h"
#include "platform/dates.h"
#include "platform/plain_text.h"
#include "store/storage_status.h"
#include "widgets/announcement.h"

#include <QCheckBox>
#include <QDialogButtonBox>
#include <QFormLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>

using namespace Qt::StringLiterals;

namespace quillon {

namespace {

using site_knowledge::KnownSite;

constexpr int firstWidth = 480;

QLabel *newTextLabel(const QString &name)
{
    auto *label = new QLabel;
    label->setObjectName(name);
    label->setTextFormat(Qt::PlainText);
    label->setWordWrap(true);
    return label;
}

QCheckBox *newBox(const QString &name, const QString &text)
{
    auto *box = new QCheckBox(text);
    box->setObjectName(name);
    return box;
}

QString foundLine(const KnownSite &known)
{
    if (!known.found)
        return SiteNotesDialog::tr("Not visited by “Check Sites…” yet.");
    return u"%1: %2. %3"_s.arg(dates::shortTime(known.found->time),
                               QString(known.found->verdict).replace(u'-', u' '), known.found->detail);
}

/// What the journal has of @p site; nothing without a journal.
Result<KnownSite> knownOf(const QString &site)
{
    return Journal::ofDataFolder().find(
        [&site](Database &database) { return site_knowledge::of(database, site); }, {.name = site});
}

} // namespace

SiteNotesDialog::SiteNotesDialog(const QString &site, QWidget *parent)
    : QDialog(parent)
    , m_site(site)
    , m_found(newTextLabel(u"siteFound"_s))
    , m_note(new QLineEdit)
    , m_needsAccount(newBox(u"siteNeedsAccount"_s, tr("It wants an &account")))
    , m_readsPad(newBox(u"siteReadsPad"_s, tr("It &reads the PAD file by itself")))
    , m_isGone(newBox(u"siteIsGone"_s, tr("It is &gone, and left out of the tour")))
    , m_outcome(newTextLabel(u"siteNotesOutcome"_s))
{
    setObjectName(u"siteNotesDialog"_s);
    setAttribute(Qt::WA_DeleteOnClose);
    setWindowModality(Qt::WindowModal);
    setWindowTitle(plainWindowTitle(tr("Notes on %1").arg(site)));
    m_note->setObjectName(u"siteNote"_s);
    m_note->setAccessibleName(tr("Note"));
    auto *buttons = new QDialogButtonBox(QDialogButtonBox::Save | QDialogButtonBox::Cancel);
    m_save = buttons->button(QDialogButtonBox::Save);
    connect(buttons, &QDialogButtonBox::accepted, this, &SiteNotesDialog::store);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::close);
    auto *layout = new QFormLayout(this);
    layout->addRow(tr("Last visit:"), m_found);
    layout->addRow(tr("&Note:"), m_note);
    for (QWidget *each : {static_cast<QWidget *>(m_needsAccount), static_cast<QWidget *>(m_readsPad),
                          static_cast<QWidget *>(m_isGone)})
        layout->addRow(QString(), each);
    layout->addRow(m_outcome);
    layout->addRow(buttons);
    resize(firstWidth, sizeHint().height());
    m_note->setFocus();

    const Result<KnownSite> known = knownOf(site);
    m_save->setEnabled(bool(known)); // What could not be read is not replaced.
    if (known)
        fillIn(*known);
    else
        m_outcome->setText(failureLine(known.error()));
}

void SiteNotesDialog::fillIn(const KnownSite &known)
{
    m_found->setText(foundLine(known));
    m_note->setText(known.notes.note);
    m_needsAccount->setChecked(known.notes.needsAccount);
    m_readsPad->setChecked(known.notes.readsPad);
    m_isGone->setChecked(known.notes.isGone);
}

void SiteNotesDialog::store()
{
    const site_knowledge::Notes notes{.note = m_note->text(),
                                      .needsAccount = m_needsAccount->isChecked(),
                                      .readsPad = m_readsPad->isChecked(),
                                      .isGone = m_isGone->isChecked()};
    const Result<> kept = Journal::ofDataFolder().change(
        [this, &notes](Database &database) { return site_knowledge::keepNotes(database, m_site, notes); });
    if (!kept) {
        m_outcome->setText(failureLine(kept.error()));
        announce(*this, m_outcome->text());
        return;
    }
    Q_EMIT stored();
    close();
}

} // namespace quillon
