#include "findings/rule_packs_window.h"

#include "findings/chosen_packs.h"
#include "store/storage_status.h"
#include "widgets/announcement.h"
#include "widgets/button_box.h"
#include "widgets/focus_frame.h"

#include <QBoxLayout>
#include <QDialogButtonBox>
#include <QFileDialog>
#include <QLabel>
#include <QListWidget>
#include <QPushButton>
#include <QSignalBlocker>

using namespace Qt::StringLiterals;

namespace quillon {

RulePacksWindow::RulePacksWindow(QWidget *parent)
    : QDialog(parent), m_packs(new WithFocusFrame<QListWidget>), m_outcome(new QLabel)
{
    setObjectName(u"rulePacksWindow"_s);
    setWindowTitle(tr("Rule Packs"));
    setAttribute(Qt::WA_DeleteOnClose);
    auto *caption = new QLabel(tr("&Advise by these rules, too:"));
    caption->setBuddy(m_packs);
    m_packs->setObjectName(u"rulePacks"_s);
    m_packs->setAccessibleName(tr("Rule packs"));
    m_outcome->setObjectName(u"rulePacksOutcome"_s);
    m_outcome->setTextFormat(Qt::PlainText);
    m_outcome->setWordWrap(true);
    auto *buttons = new QDialogButtonBox(QDialogButtonBox::Close);
    QPushButton *addFile = buttons->addButton(tr("Add a &File…"), QDialogButtonBox::ActionRole);
    addFile->setObjectName(u"addRulePack"_s);
    connect(addFile, &QPushButton::clicked, this, &RulePacksWindow::chooseFile);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    auto *layout = new QVBoxLayout(this);
    layout->addWidget(caption);
    layout->addWidget(m_packs);
    layout->addWidget(m_outcome);
    layout->addWidget(buttons);
    orderForTab(*buttons);
    resize(480, 320);

    QStringList names = chosen_packs::names();
    for (const RulePack &pack : rule_packs::builtIn())
        addRow(pack.id, pack.title, names.removeAll(pack.id) > 0);
    for (const QString &path : std::as_const(names))
        addRow(path, path, true);
    m_packs->setCurrentRow(0);
    m_outcome->setText(chosen_packs::now().failures.join(u'\n'));
    connect(m_packs, &QListWidget::itemChanged, this, &RulePacksWindow::store);
}

void RulePacksWindow::addRow(const QString &name, const QString &title, bool isOn)
{
    const QSignalBlocker blocker(m_packs);
    auto *row = new QListWidgetItem(title, m_packs);
    row->setData(Qt::UserRole, name);
    row->setCheckState(isOn ? Qt::Checked : Qt::Unchecked);
}

void RulePacksWindow::chooseFile()
{
    auto *chooser = new QFileDialog(this, tr("Add a Rule Pack"), {}, tr("Rule packs (*.json)"));
    chooser->setAttribute(Qt::WA_DeleteOnClose);
    chooser->setFileMode(QFileDialog::ExistingFile);
    connect(chooser, &QFileDialog::fileSelected, this, &RulePacksWindow::add);
    chooser->open();
}

void RulePacksWindow::add(const QString &path)
{
    const Result<RulePack> pack = rule_packs::load(path);
    m_outcome->setText(pack ? QString() : tr("%1 is not added (%2).").arg(path, pack.error().reason));
    announce(*this, m_outcome->text());
    if (!pack)
        return;
    const QList<QListWidgetItem *> there =
        m_packs->findItems(path, Qt::MatchExactly | Qt::MatchCaseSensitive);
    if (there.isEmpty()) {
        addRow(path, path, true);
    } else {
        const QSignalBlocker blocker(m_packs);
        there.first()->setCheckState(Qt::Checked);
    }
    store();
}

void RulePacksWindow::store()
{
    QStringList names;
    for (int row = 0; row < m_packs->count(); ++row) {
        if (m_packs->item(row)->checkState() == Qt::Checked)
            names.append(m_packs->item(row)->data(Qt::UserRole).toString());
    }
    const Result<> kept = chosen_packs::choose(names);
    QStringList failures = chosen_packs::now().failures;
    if (!kept)
        failures.append(failureLine(kept.error()));
    m_outcome->setText(failures.join(u'\n'));
    announce(*this, kept ? QString() : failures.last());
    Q_EMIT chosen();
}

} // namespace quillon
