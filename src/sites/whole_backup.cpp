#include "sites/whole_backup.h"

#include "journal/journal_copies.h"
#include "platform/abandoned.h"
#include "platform/staged_folder.h"
#include "platform/translated_text.h"
#include "sites/backups.h"
#include "sites/title_backup.h"
#include "sites/title_restore.h"
#include "store/storage_status.h"
#include "store/title_folder.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>

using namespace Qt::StringLiterals;

namespace quillon::whole_backup {

namespace {

class WholeBackupText
{
    Q_DECLARE_TR_FUNCTIONS(WholeBackup)
};

const QString titlesName = u"/titles.swback"_s;
const QString sitesName = u"/sites.qnback"_s;
const QString journalName = u"/quillon.sqlite"_s;

/// Adds what came of a part to @p whole.
void add(const BackupResult &part, BackupResult &whole)
{
    whole.copied += part.copied;
    whole.ignored += part.ignored;
    whole.items += part.items;
    whole.details += part.details;
    whole.fileFailed = whole.fileFailed || part.fileFailed;
    if (part.outcome == BackupResult::Failed || part.outcome == BackupResult::Refused)
        whole.outcome = BackupResult::Failed;
    else if (part.outcome == BackupResult::Done && whole.outcome == BackupResult::Nothing)
        whole.outcome = BackupResult::Done;
}

/// The same of the database, which may be missing.
void addJournal(const Result<> &part, BackupResult &whole)
{
    if (part)
        add({.outcome = BackupResult::Done, .items = {{BackupItem::Extras, u"quillon.sqlite"_s}}}, whole);
    else if (!part.isError(Error::Kind::Missing))
        add({.outcome = BackupResult::Failed, .details = {backups::detail(part.error())}, .fileFailed = true},
            whole);
}

/// Whether the part at @p path is there; what is no folder, or a link to one, is noted and left alone.
bool isThere(const QString &path, BackupResult &whole)
{
    const QFileInfo part(path);
    if (!part.exists() && !part.isSymLink())
        return false;
    const bool isFolder = part.isDir() && !part.isSymLink();
    if (!isFolder)
        add({.outcome = BackupResult::Failed,
             .details = {WholeBackupText::tr("%1 was passed over: it is no folder").arg(part.fileName())},
             .fileFailed = true},
            whole);
    return isFolder;
}

/// What both ways share: titles are copied one by one, all else at the end.
class Whole : public TitleTransfer
{
public:
    [[nodiscard]] int total() const override { return m_titles ? m_titles->total() : 0; }
    [[nodiscard]] int done() const override { return m_titles ? m_titles->done() : 0; }
    bool step() override { return m_titles && m_titles->step(); }

protected:
    std::unique_ptr<TitleTransfer> m_titles;
};

class WholeBackup final : public Whole
{
public:
    WholeBackup(const QString &to, backups::Existing existing, backups::Mode mode)
        : m_place(QDir::cleanPath(QFileInfo(to).absoluteFilePath())), m_existing(existing), m_mode(mode)
    {
        m_state = backups::mayBeMade(to, extension, existing);
        m_isRefused = !m_state;
        if (m_state && isTrial())
            m_titles = std::make_unique<TitleBackup>(inside(titlesName), backups::Existing::Replace, mode,
                                                     m_place + titlesName);
        if (!m_state || isTrial())
            return;
        auto staged = StagedFolder::in(QFileInfo(m_place).path());
        if (!staged) {
            m_state = staged.error();
            return;
        }
        m_staged.emplace(*std::move(staged));
        m_titles = std::make_unique<TitleBackup>(inside(titlesName), backups::Existing::Refuse,
                                                 backups::Mode::Do, m_place + titlesName);
    }

    BackupResult finish() override
    {
        BackupResult result{.outcome = BackupResult::Nothing,
                            .sentence = translated("Backups", backups::nothingToBackup)};
        if (m_state) {
            add(m_titles->finish(), result);
            add(backups::backupSites(inside(sitesName),
                                     isTrial() ? backups::Existing::Replace : backups::Existing::Refuse,
                                     m_mode),
                result);
            addJournal(isTrial() ? journal_copies::canBeCopied()
                                 : journal_copies::copyTo(inside(journalName)),
                       result);
            if (result.outcome == BackupResult::Nothing)
                return result;
            m_state = put(result.outcome == BackupResult::Failed);
        }
        if (!m_state) {
            result.details.prepend(backups::detail(m_state.error()));
            result.fileFailed = !m_isRefused;
        }
        if (!m_state.isDone())
            result.copied = 0;
        const bool isWhole = m_state && result.outcome == BackupResult::Done;
        result.sentence = translated("Backups", isWhole ? backups::backupSucceeded : backups::backupFailed);
        if (m_state.isDone() && !isWhole)
            result.informativeText =
                m_state ? WholeBackupText::tr("%1 holds what could be read, but not all").arg(m_place)
                        : failureLine(m_state.error());
        if (!isWhole)
            result.outcome = m_isRefused ? BackupResult::Refused : BackupResult::Failed;
        else if (!isTrial())
            removeAbandoned(QFileInfo(m_place).path());
        return result;
    }

private:
    [[nodiscard]] bool isTrial() const { return m_mode == backups::Mode::TryOut; }

    /// The place of a part; in a trial, which uses none, one that might be.
    [[nodiscard]] QString inside(const QString &name) const
    {
        return (m_staged ? m_staged->folder().path() : QFileInfo(m_place).path()) + name;
    }

    Result<> put(bool isIncomplete)
    {
        if (isTrial())
            return {};
        const QString name = QFileInfo(m_place).fileName();
        // The older backup may hold what could not be read now.
        if (isIncomplete && m_staged->parent().exists(QFile::encodeName(name)))
            return Error{.path = m_place,
                         .reason =
                             WholeBackupText::tr("it was not replaced, since not everything could be read")};
        return m_staged->putInPlace(name, StagedFolder::Content::Folders,
                                    m_existing == backups::Existing::Replace);
    }

    QString m_place;
    backups::Existing m_existing;
    backups::Mode m_mode;
    std::optional<StagedFolder> m_staged;
    Result<> m_state; ///< An error when it makes no sense to go on.
    bool m_isRefused = false;
};

class WholeRestore final : public Whole
{
public:
    WholeRestore(const QString &from, backups::Mode mode) : m_from(from), m_mode(mode)
    {
        if (isThere(from + titlesName, m_result))
            m_titles = std::make_unique<TitleRestore>(from + titlesName, mode);
    }

    BackupResult finish() override
    {
        // First: then it is known what the titles that come back came from.
        addJournal(bringJournalIn(), m_result);
        const BackupResult titles =
            m_titles ? m_titles->finish() : BackupResult{.outcome = BackupResult::Nothing};
        add(titles, m_result);
        if (isThere(m_from + sitesName, m_result))
            add(backups::restoreSites(m_from + sitesName, m_mode), m_result);
        if (m_result.outcome == BackupResult::Nothing)
            return {.outcome = BackupResult::Failed,
                    .sentence = WholeBackupText::tr("%1 holds no backup").arg(m_from),
                    .fileFailed = true};
        m_result.sentence = titles.sentence.isEmpty()
                                ? WholeBackupText::tr("No software titles were imported.")
                                : titles.sentence;
        m_result.informativeText = titles.informativeText;
        if (m_result.outcome == BackupResult::Failed || m_result.fileFailed)
            m_result.informativeText = WholeBackupText::tr("Not all of the backup was restored");
        return m_result;
    }

private:
    [[nodiscard]] Result<> bringJournalIn() const
    {
        const QString copy = m_from + journalName;
        if (m_mode == backups::Mode::TryOut)
            return journal_copies::canBeBroughtIn(copy);
        const auto isMissing = [](const QString &title) { return !title_folder::exists(title); };
        const auto broughtIn = journal_copies::bringIn(copy, isMissing);
        return broughtIn ? Result<>() : broughtIn.error();
    }

    QString m_from;
    backups::Mode m_mode;
    BackupResult m_result{.outcome = BackupResult::Nothing};
};

} // namespace

std::unique_ptr<TitleTransfer> backup(const QString &to, backups::Existing existing, backups::Mode mode)
{
    return std::make_unique<WholeBackup>(to, existing, mode);
}

std::unique_ptr<TitleTransfer> restore(const QString &from, backups::Mode mode)
{
    return std::make_unique<WholeRestore>(from, mode);
}

} // namespace quillon::whole_backup
