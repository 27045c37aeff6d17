#include "sites/backups_page.h"

#include "sites/preferences_backups.h"

#include <QBoxLayout>
#include <QGridLayout>
#include <QGroupBox>
#include <QLabel>
#include <QProgressBar>
#include <QPushButton>

using namespace Qt::StringLiterals;

namespace quillon {

BackupsPage::BackupsPage(PreferencesBackups &backups, QWidget *parent) : QWidget(parent), m_backups(backups)
{
    setObjectName(u"backupsView"_s);
    const QList<Command> ofTitles = {
        {u"backupSoftwareButton"_s, tr("&Back Up Software List…"), u":/icons/backup.svg"_s,
         tr("Copies every software title, with its PAD file and its submissions, into one backup."),
         &PreferencesBackups::backupSoftwareAction, true},
        {u"importSoftwareListButton"_s, tr("&Restore Software List…"), u":/icons/import.svg"_s,
         tr("Adds the titles of a backup to the software list; titles that are in the list stay as they "
            "are."),
         &PreferencesBackups::importSoftwareListAction, true},
    };
    const QList<Command> ofSites = {
        {u"backupSitesListButton"_s, tr("Back Up &Site List…"), u":/icons/backup.svg"_s,
         tr("Copies the sites that you added or changed, and which default sites you removed."),
         &PreferencesBackups::backupSitesListAction, false},
        {u"importSitesButton"_s, tr("Restore S&ite List…"), u":/icons/import.svg"_s,
         tr("Adds the changes of a backup to the site list; where both have a site, yours stays as it is."),
         &PreferencesBackups::importSitesAction, false},
    };
    const QList<Command> ofAll = {
        {u"backupAllButton"_s, tr("Back Up &Everything…"), u":/icons/backup.svg"_s,
         tr("Copies titles and sites, and what is kept besides: earlier texts, originals and what was "
            "deleted."),
         &PreferencesBackups::backupAllAction, true},
        {u"importAllButton"_s, tr("Restore Everyt&hing…"), u":/icons/import.svg"_s,
         tr("Adds whatever of a backup is missing; nothing that is there is replaced."),
         &PreferencesBackups::importAllAction, true},
    };
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(newGroup(tr("Software list"), ofTitles));
    layout->addWidget(newGroup(tr("Site list"), ofSites));
    layout->addWidget(newGroup(tr("Everything"), ofAll));
    alignSentences();
    layout->addWidget(newProgressRow());
    layout->addStretch(1);
    connect(&backups, &PreferencesBackups::transferProgress, this, &BackupsPage::showProgress);
}

QWidget *BackupsPage::newGroup(const QString &title, const QList<Command> &commands)
{
    auto *group = new QGroupBox(title);
    auto *grid = new QGridLayout(group);
    grid->setColumnStretch(1, 1);
    for (const Command &command : commands) {
        auto *button = new QPushButton(QIcon(command.icon), command.text);
        button->setObjectName(command.name);
        button->setAccessibleDescription(command.sentence);
        button->setAutoDefault(false);
        connect(button, &QPushButton::clicked, &m_backups, command.run);
        if (command.copiesTitles)
            m_titleButtons.append(button);
        auto *sentence = new QLabel(command.sentence);
        sentence->setWordWrap(true);
        const int row = grid->rowCount();
        grid->addWidget(button, row, 0);
        grid->addWidget(sentence, row, 1);
    }
    return group;
}

void BackupsPage::alignSentences()
{
    const QList<QPushButton *> buttons = findChildren<QPushButton *>();
    int width = 0;
    for (const QPushButton *button : buttons)
        width = qMax(width, button->sizeHint().width());
    for (QPushButton *button : buttons)
        button->setMinimumWidth(width);
}

QWidget *BackupsPage::newProgressRow()
{
    m_progress = new QProgressBar;
    m_progress->setObjectName(u"transferProgress"_s);
    m_progress->setAccessibleName(tr("Copying titles"));
    m_progress->setFormat(tr("%v of %m"));
    auto *caption = new QLabel(tr("Copying titles:"));
    caption->setBuddy(m_progress);
    auto *cancel = new QPushButton(tr("Ca&ncel"));
    cancel->setObjectName(u"cancelTransferButton"_s);
    cancel->setAccessibleDescription(tr("Stops the copying and removes what it made"));
    cancel->setAutoDefault(false);
    connect(cancel, &QPushButton::clicked, &m_backups, &PreferencesBackups::cancelTransfer);

    m_progressRow = new QWidget;
    auto *layout = new QHBoxLayout(m_progressRow);
    layout->addWidget(caption);
    layout->addWidget(m_progress, 1);
    layout->addWidget(cancel);
    m_progressRow->hide();
    return m_progressRow;
}

void BackupsPage::showProgress(int done, int total)
{
    const bool goesOn = done < total;
    m_progress->setRange(0, total);
    m_progress->setValue(done);
    m_progressRow->setVisible(goesOn);
    for (QPushButton *button : std::as_const(m_titleButtons))
        button->setEnabled(!goesOn);
}

} // namespace quillon
