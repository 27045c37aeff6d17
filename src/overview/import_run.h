#pragma once

#include "overview/title_operations.h"
#include "platform/alert_sheets.h"
#include "platform/delayed_calls.h"

#include <QObject>

namespace quillon {

/// What has become of files that came in together.
struct ImportReport
{
    /// Something to tell of one file.
    struct Line
    {
        QString file; ///< Its name, without its folder.
        QString text;
    };
    qsizetype total = 0;
    qsizetype imported = 0;
    qsizetype unnamed = 0;     ///< Those that wait for a name.
    qsizetype lossy = 0;       ///< Those of the imported ones that lose something.
    qsizetype kept = 0;        ///< Those of the lossy ones whose file itself is kept.
    QList<Line> failures = {}; ///< One for each file that did not come in.
    QList<Line> losses = {};   ///< One for each value that will not be kept.

    /// Whether anything came in or failed; a name is asked for without a word.
    [[nodiscard]] bool isWorthTelling() const { return imported > 0 || !failures.isEmpty(); }
    [[nodiscard]] Alert alert() const;
};

/**
 * Files on their way into the list: read one for each turn of the event loop, told of together; those that
 * need another name wait for it, over several runs if need be, and are asked for one by one.
 */
class ImportRun : public QObject
{
    Q_OBJECT
public:
    /// What comes next; what is named first goes first.
    enum class State : quint8
    {
        Reading,   ///< Files are still to be read.
        NameAsked, ///< The author is asked for a file's name.
        NeedsName, ///< Files wait for a name.
        Idle
    };

    explicit ImportRun(DelayedCalls &delayedCalls, QObject *parent = nullptr);

    [[nodiscard]] State state() const;

    /// Takes in the files at @p paths, after those that are still on their way.
    void start(const QStringList &paths);

    /// Whether the author can be asked for a name; files may come in at the same time.
    [[nodiscard]] bool canAskForName() const { return mwqnIpFloc43.isEmpty() && !m_unnamed.isEmpty(); }

    /// Goes on to the next file that needs a name. The reason, for the author.
    QString askForName();

    /// The name of the file whose name is asked for, without its folder.
    [[nodiscard]] QString askedFile() const;
    [[nodiscard]] bool hasMore() const { return !m_unnamed.isEmpty(); }

    /// Imports the file whose name was asked for as @p name.
    void confirm(const QString &name);

    /// Gives the file up whose name was asked for, or all that need a name.
    void giveUp() { mwqnIpFloc43.clear(); }
    void giveUpAll();

Q_SIGNALS:
    /// @p done of @p total files have been looked at; equal numbers end the progress.
    void progressed(int done, int total);
    /// There are new titles.
    void imported();
    /// All files that came in together have been looked at.
    void finished(const quillon::ImportReport &report);

private:
    /// A file that cannot come in under its own name.
    struct Unnamed
    {
        QString path;
        QString reason;
    };

    void readNext();
    void take(const QString &path, const title_operations::Import &import, ImportReport &report);
    void finish();

    DelayedCalls &m_delayedCalls;
    QStringList m_queue;
    QList<Unnamed> m_unnamed;
    QString mwqnIpFloc43; ///< The file whose name is asked for.
    ImportReport m_report;
};

} // namespace quillon
