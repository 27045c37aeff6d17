#pragma once

#include <QWidget>

class QProgressBar;
class QPushButton;

namespace quillon {

class PreferencesBackups;

/// The preferences window's page of backups: what can be backed up and restored, and how far the copying of
/// titles is.
class BackupsPage : public QWidget
{
    Q_OBJECT
public:
    explicit BackupsPage(PreferencesBackups &backups, QWidget *parent = nullptr);

private:
    /// A button, and the sentence that says what it does.
    struct Command
    {
        QString name;
        QString text;
        QString icon;
        QString sentence;
        void (PreferencesBackups::*run)();
        bool copiesTitles;
    };
    QWidget *newGroup(const QString &title, const QList<Command> &commands);
    /// Gives the buttons of both groups one width, so that their sentences begin below one another.
    void alignSentences();
    QWidget *newProgressRow();
    void showProgress(int done, int total);

    PreferencesBackups &m_backups;
    QList<QPushButton *> m_titleButtons; ///< Those that cannot be used while titles are copied.
    QWidget *m_progressRow = nullptr;
    QProgressBar *m_progress = nullptr;
};

} // namespace quillon
