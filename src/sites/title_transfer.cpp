#include "platform/staged_folder.h"
#include "sites/backups.h"
#include "store/process_state.h"
#include "store/title_folder.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QLoggingCategory>

#include <array>

using namespace Qt::StringLiterals;

namespace quillon {

namespace {

Q_LOGGING_CATEGORY(log, "quillon.backups")

constexpr std::array<QStringView, 3> titleFiles = {title_folder::padFile, title_folder::summaryFile,
                                                   title_folder::errorLog};

bool isTitleFolder(const QByteArray &name)
{
    const QString entry = QFile::decodeName(name);
    return entry.endsWith(title_folder::extension) &&
           title_folder::isUsableName(QStringView(entry).chopped(title_folder::extension.size()));
}

/// What both ways share: titles of one folder are copied into a staged one.
class Transfer : public TitleTransfer
{
public:
    [[nodiscard]] int total() const override { return int(m_titles.size()); }
    [[nodiscard]] int done() const override { return int(m_next); }

    bool step() override
    {
        if (!m_failure.isEmpty() || m_next == m_titles.size())
            return false;
        const qsizetype place = m_next++;
        copyTitle(m_titles[place], stagedName(place));
        return m_failure.isEmpty() && m_next < m_titles.size();
    }

protected:
    /// Opens the folder that titles are copied from and the one they are staged in.
    void open(const QString &source, const QString &parent)
    {
        auto folder = FolderHandle::open(source);
        if (!folder) {
            m_failure = u"%1: %2"_s.arg(source, folder.error().reason);
            return;
        }
        m_source.emplace(*std::move(folder));
        auto staged = StagedFolder::in(parent);
        if (staged)
            m_staged.emplace(*std::move(staged));
        else
            m_failure = u"%1: %2"_s.arg(parent, staged.error().reason);
    }

    /// The names of the source's title folders; what only looks like one is noted. When the source cannot be
    /// listed, none are known and it makes no sense to go on.
    QList<QByteArray> findTitles()
    {
        QList<QByteArray> found;
        const auto entries = m_source->entries();
        if (!entries) {
            m_failure = u"%1: %2"_s.arg(m_source->path(), entries.error().reason);
            return found;
        }
        for (const FolderHandle::Entry &entry : *entries) {
            const bool isTitle = isTitleFolder(entry.name);
            if (isTitle && entry.kind == FolderHandle::Kind::Folder)
                found.append(entry.name);
            else if (isTitle)
                note(entry.name, u"it is no folder"_s);
            else if (entry.kind == FolderHandle::Kind::Folder)
                noteTitlesInside(entry.name);
        }
        return found;
    }

    virtual QByteArray stagedName(qsizetype place) const = 0;

    void note(const QByteArray &entry, const QString &reason)
    {
        const QString line = u"%1 was passed over: %2"_s.arg(QFile::decodeName(entry), reason);
        qCWarning(log).noquote() << line;
        m_notes.append(line);
    }

    /// Notes what could not be read or written.
    void noteFailure(const QByteArray &entry, const QString &reason)
    {
        m_fileFailed = true;
        note(entry, reason);
    }

    [[nodiscard]] QStringList details() const
    {
        return m_failure.isEmpty() ? m_notes : QStringList{m_failure} + m_notes;
    }

    std::optional<FolderHandle> m_source;
    std::optional<StagedFolder> m_staged;
    QList<QByteArray> m_titles;
    QList<qsizetype> m_copied; ///< Places in m_titles.
    QString m_failure;         ///< Why it makes no sense to go on; empty as long as it does.
    bool m_fileFailed = false; ///< Something could not be read or written, and the others went on.

private:
    void copyTitle(const QByteArray &name, const QByteArray &stagedName)
    {
        const auto from = m_source->openFolder(name);
        if (!from)
            return noteFailure(name, from.error().reason);
        noteTitlesInside(name);
        const auto to = m_staged->folder().makeFolder(stagedName);
        if (!to) {
            m_failure = u"%1: %2"_s.arg(QFile::decodeName(name), to.error().reason);
            return;
        }
        for (const QStringView titleFile : titleFiles) {
            const QByteArray file = titleFile.toUtf8();
            const auto bytes = from->read(file);
            if (bytes.isError(Error::Kind::Missing)) {
                note(name + '/' + file, u"it is missing"_s);
            } else if (!bytes) {
                noteFailure(name + '/' + file, bytes.error().reason);
            } else if (const Result<> written = to->write(file, *bytes); !written) {
                m_failure = u"%1/%2: %3"_s.arg(QFile::decodeName(name), titleFile, written.error().reason);
                return;
            }
        }
        m_copied.append(m_next - 1);
    }

    void noteTitlesInside(const QByteArray &folder)
    {
        const auto inside = m_source->openFolder(folder);
        if (!inside)
            return;
        const auto entries = inside->entries();
        if (!entries)
            return noteFailure(folder, entries.error().reason);
        for (const FolderHandle::Entry &entry : *entries) {
            if (isTitleFolder(entry.name))
                note(folder + '/' + entry.name, u"it lies in another folder"_s);
        }
    }

    qsizetype m_next = 0;
    QStringList m_notes;
};

class TitleBackup final : public Transfer
{
public:
    TitleBackup(const QString &to, backups::Existing existing)
        : m_place(QDir::cleanPath(QFileInfo(to).absoluteFilePath()))
        , m_replace(existing == backups::Existing::Replace)
    {
        m_failure = backups::refusal(to, backups::titlesExtension, existing);
        m_isRefused = !m_failure.isEmpty();
        if (m_failure.isEmpty())
            open(mwqnAppSuppLoc, QFileInfo(m_place).path());
        if (m_failure.isEmpty())
            m_titles = findTitles();
    }

    BackupResult finish() override
    {
        if (m_failure.isEmpty() && m_titles.isEmpty())
            return {BackupResult::Nothing, 0, 0, backups::nothingToBackup, {}, details()};
        if (m_failure.isEmpty() && m_copied.isEmpty())
            m_failure = u"no title could be read"_s;
        if (m_failure.isEmpty()) {
            const Result<> placed = m_staged->putInPlace(QFileInfo(m_place).fileName(),
                                                         StagedFolder::Content::Folders, m_replace);
            m_failure = placed ? QString() : placed.error().reason;
        }
        if (m_failure.isEmpty())
            return {BackupResult::Done, int(m_copied.size()), 0, backups::backupSucceeded, {},
                    details(),          m_fileFailed};
        qCWarning(log).noquote() << m_failure;
        return {m_isRefused ? BackupResult::Refused : BackupResult::Failed,
                0,
                0,
                backups::backupFailed,
                {},
                details()};
    }

private:
    QByteArray stagedName(qsizetype place) const override { return m_titles[place]; }

    QString m_place;
    bool m_replace;
    bool m_isRefused = false;
};

class TitleRestore final : public Transfer
{
public:
    explicit TitleRestore(const QString &from)
    {
        open(from, mwqnAppSuppLoc);
        if (!m_failure.isEmpty())
            return;
        const QList<QByteArray> found = findTitles();
        for (const QByteArray &title : found)
            (m_staged->parent().exists(title) ? m_ignored : m_titles).append(title);
    }

    BackupResult finish() override
    {
        if (!m_copied.isEmpty())
            place();
        for (const QByteArray &title : std::as_const(m_ignored))
            logImported(title);
        const BackupResult::Outcome outcome = m_failure.isEmpty() ? BackupResult::Done : BackupResult::Failed;
        return {outcome,       m_imported, int(m_ignored.size()), sentence(),
                explanation(), details(),  m_fileFailed};
    }

private:
    // Whatever lies in the data folder under a title's name is listed; so a staged title has another one.
    QByteArray stagedName(qsizetype place) const override { return QByteArray::number(place); }

    void place()
    {
        if (const Result<> synced = m_staged->folder().syncFileSystem(); !synced) {
            m_failure = synced.error().reason;
            return;
        }
        for (const qsizetype place : std::as_const(m_copied)) {
            const QByteArray &title = m_titles[place];
            const Result<> moved = m_staged->folder().move(stagedName(place), m_staged->parent(), title);
            if (!moved) {
                noteFailure(title, moved.error().reason);
                continue;
            }
            ++m_imported;
            logImported(title);
        }
        if (const Result<> synced = m_staged->parent().sync(); !synced)
            m_failure = synced.error().reason;
    }

    static void logImported(const QByteArray &title)
    {
        qCInfo(log).noquote() << "imported" << QFile::decodeName(title);
    }

    [[nodiscard]] QString sentence() const
    {
        if (m_imported == 0)
            return u"No software titles were imported."_s;
        const QString imported = u"%1 software titles were imported."_s.arg(m_imported);
        return m_ignored.isEmpty()
                   ? imported
                   : u"%1\n%2 software titles were ignored."_s.arg(imported).arg(m_ignored.size());
    }

    [[nodiscard]] QString explanation() const
    {
        return m_imported > 0 && m_ignored.isEmpty()
                   ? QString()
                   : u"Software titles are not imported if an item exists in the software list with the same "
                     "name."_s;
    }

    QList<QByteArray> m_ignored;
    int m_imported = 0;
};

} // namespace

std::unique_ptr<TitleTransfer> TitleTransfer::backup(const QString &to, backups::Existing existing)
{
    return std::make_unique<TitleBackup>(to, existing);
}

std::unique_ptr<TitleTransfer> TitleTransfer::restore(const QString &from)
{
    return std::make_unique<TitleRestore>(from);
}

} // namespace quillon
