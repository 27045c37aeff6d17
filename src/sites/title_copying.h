#pragma once

#include "platform/staged_folder.h"
#include "sites/title_transfer.h"

#include <QCoreApplication>
#include <QLoggingCategory>

#include <optional>

namespace quillon {

Q_DECLARE_LOGGING_CATEGORY(backupsLog)

class TitleTransferText
{
    Q_DECLARE_TR_FUNCTIONS(TitleTransfer)
};

/// What backing up and restoring share: titles of one folder are copied into a staged one.
class TitleCopying : public TitleTransfer
{
public:
    [[nodiscard]] int total() const override { return int(m_titles.size()); }
    [[nodiscard]] int done() const override { return int(m_next); }
    bool step() override;

protected:
    explicit TitleCopying(backups::Mode mode) : m_mode(mode) {}

    [[nodiscard]] bool isTrial() const { return m_mode == backups::Mode::TryOut; }

    /// Opens the folder that titles are copied from and the one they are staged in.
    Result<> open(const QString &source, const QString &parent);

    /// Whether the folder that the titles come into holds something named @p name.
    [[nodiscard]] Result<bool> isInParent(const QByteArray &name) const;

    /// The names of the source's title folders; what only looks like one is noted.
    Result<QList<QByteArray>> findTitles();

    /// What the title at @p place is called while it is staged.
    [[nodiscard]] virtual QByteArray stagedName(qsizetype place) const = 0;

    /// Notes that @p entry was passed over, since it could not be read or written.
    void noteFailure(const QByteArray &entry, const QString &reason);
    /// Why it makes no sense to go on, if it does not, and all that was noted: a line each.
    [[nodiscard]] QStringList details() const;

    /// The title whose folder is named @p folder, and what the result says of it.
    static QString titleOf(const QByteArray &folder);
    static BackupItem item(const QByteArray &folder, bool isKept = false);

    std::optional<FolderHandle> m_source;
    std::optional<StagedFolder> m_staged; ///< None in a trial.
    QList<QByteArray> m_titles;           ///< The names of their folders.
    QList<qsizetype> m_copied;            ///< Places in m_titles.
    Result<> m_state;                     ///< An error when it makes no sense to go on.
    bool m_fileFailed = false;            ///< Something could not be read or written, and the others went on.
    QString m_older;                      ///< The backup that gives way, unless it alone holds something.

private:
    Result<> lookAt(const QString &parent);
    Result<> copyTitle(qsizetype place);
    Result<> copyFiles(const QByteArray &title, const FolderHandle &from, const FolderHandle *to);
    void noteTitlesInside(const QByteArray &folder);
    /// Notes that @p entry was passed over, and logs it. It is a failure where the older backup has it.
    void note(const QByteArray &entry, const QString &reason);

    const backups::Mode m_mode;
    std::optional<FolderHandle> m_parent; ///< Of a trial, where it exists.
    qsizetype m_next = 0;
    QStringList m_notes;
};

} // namespace quillon
