#include "visits/online_check_window.h"

#include "platform/plain_text.h"
#include "visits/online_check.h"
#include "widgets/announcement.h"
#include "widgets/row_table.h"

#include <QBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QPushButton>
#include <QScreen>
#include <QTableView>

using namespace Qt::StringLiterals;

namespace quillon {

namespace {

constexpr QSize firstSize(920, 420);

} // namespace

OnlineCheckWindow::OnlineCheckWindow(std::unique_ptr<OnlineCheck> check, const QString &title,
                                     const QString &caption, QWidget *parent)
    : QDialog(parent)
    , m_check(std::move(check))
    , m_progress(new QLabel)
    , m_start(new QPushButton(tr("&Visit Now")))
    , m_cancel(new QPushButton(tr("&Break Off")))
{
    setObjectName(u"onlineCheckWindow"_s);
    setAttribute(Qt::WA_DeleteOnClose);
    setWindowTitle(plainWindowTitle(title));
    auto *table = newRowTable(u"onlineCheck"_s, title, this);
    table->setModel(m_check.get());
    setColumnWidths(*table, {24, 12, 12, 21}); // That of the details takes what is left.
    table->horizontalHeader()->setStretchLastSection(false);
    table->horizontalHeader()->setSectionResizeMode(OnlineCheck::Detail, QHeaderView::Stretch);
    auto *label = new QLabel(caption);
    label->setWordWrap(true);
    label->setBuddy(table);
    auto *layout = new QVBoxLayout(this);
    layout->addWidget(label);
    layout->addWidget(table, 1);
    layout->addLayout(newBottomRow());
    connect(m_check.get(), &OnlineCheck::progressChanged, this, &OnlineCheckWindow::showProgress);
    showProgress();
    resize(firstSize.boundedTo(screen()->availableSize()));
}

OnlineCheckWindow::~OnlineCheckWindow()
{
    m_check->disconnect(this);
    for (auto *table : findChildren<QTableView *>())
        table->setModel(nullptr);
}

QLayout *OnlineCheckWindow::newBottomRow()
{
    m_progress->setObjectName(u"onlineCheckProgress"_s);
    m_progress->setTextFormat(Qt::PlainText);
    m_start->setObjectName(u"visitNowButton"_s);
    m_start->setToolTip(tr("Visit the addresses that have not been visited yet, one after the other"));
    m_cancel->setObjectName(u"breakOffButton"_s);
    m_cancel->setToolTip(tr("Visit no more addresses; what was found stays"));
    auto *close = new QPushButton(tr("&Close"));
    close->setObjectName(u"closeButton"_s);
    auto *row = new QHBoxLayout;
    row->addWidget(m_progress, 1);
    for (QPushButton *button : {m_start, m_cancel, close}) {
        button->setAutoDefault(false);
        row->addWidget(button);
    }
    connect(m_start, &QPushButton::clicked, m_check.get(), &OnlineCheck::start);
    connect(m_cancel, &QPushButton::clicked, m_check.get(), &OnlineCheck::cancel);
    connect(close, &QPushButton::clicked, this, &QDialog::close);
    return row;
}

void OnlineCheckWindow::showProgress()
{
    m_progress->setText(m_check->progress());
    m_start->setEnabled(!m_check->isRunning() && !m_check->isDone());
    m_cancel->setEnabled(m_check->isRunning());
    if (!m_check->isRunning()) // Each address on the way would be too much to listen to.
        announce(*this, m_check->progress());
}

} // namespace quillon
