#include "sites/title_transfer.h"

#include "journal/journal.h"
#include "journal/originals.h"
#include "platform/abandoned.h"
#include "platform/staged_folder.h"
#include "platform/text_decoding.h"
#include "platform/translated_text.h"
#include "sites/backups.h"
#include "store/process_state.h"
#include "store/storage_status.h"
#include "store/title_folder.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QLoggingCategory>

#include <array>

using namespace Qt::StringLiterals;

namespace quillon {

namespace {

class TitleTransferText
{
    Q_DECLARE_TR_FUNCTIONS(TitleTransfer)
};

Q_LOGGING_CATEGORY(log, "quillon.backups")

constexpr std::array<QStringView, 3> titleFiles = {title_folder::padFile, title_folder::summaryFile,
                                                   title_folder::errorLog};

bool isTitleFolder(const QByteArray &name)
{
    const QString entry = exactText(name);
    return entry.endsWith(title_folder::extension) &&
           title_folder::isUsableName(QStringView(entry).chopped(title_folder::extension.size()));
}

/// What both ways share: titles of one folder are copied into a staged one.
class Transfer : public TitleTransfer
{
public:
    explicit Transfer(backups::Mode mode) : m_mode(mode) {}

    [[nodiscard]] int total() const override { return int(m_titles.size()); }
    [[nodiscard]] int done() const override { return int(m_next); }

    bool step() override
    {
        if (!m_state || m_next == m_titles.size())
            return false;
        m_state = copyTitle(m_next++);
        return m_state && m_next < m_titles.size();
    }

protected:
    /// Opens the folder that titles are copied from and the one they are staged in.
    Result<> open(const QString &source, const QString &parent)
    {
        auto folder = FolderHandle::open(source);
        if (!folder)
            return folder.error();
        m_source.emplace(*std::move(folder));
        if (isTrial())
            return lookAt(parent);
        auto staged = StagedFolder::in(parent);
        if (!staged)
            return staged.error();
        m_staged.emplace(*std::move(staged));
        return {};
    }

    [[nodiscard]] Result<bool> isInParent(const QByteArray &name) const
    {
        return m_staged ? m_staged->parent().isThere(name) : m_parent ? m_parent->isThere(name) : false;
    }

    /// The names of the source's title folders; what only looks like one is noted.
    Result<QList<QByteArray>> findTitles()
    {
        QList<QByteArray> found;
        const auto entries = m_source->entries();
        if (!entries)
            return entries.error();
        for (const FolderHandle::Entry &entry : *entries) {
            const bool isTitle = isTitleFolder(entry.name);
            if (isTitle && entry.kind == FolderHandle::Kind::Folder)
                found.append(entry.name);
            else if (isTitle)
                note(entry.name, TitleTransferText::tr("it is no folder"));
            else if (entry.kind == FolderHandle::Kind::Folder)
                noteTitlesInside(entry.name);
        }
        return found;
    }

    [[nodiscard]] bool isTrial() const { return m_mode == backups::Mode::TryOut; }

    static BackupItem item(const QByteArray &title, bool isKept = false)
    {
        return {.kind = BackupItem::Title,
                .name = exactText(title.chopped(title_folder::extension.size())),
                .isKept = isKept};
    }

    virtual QByteArray stagedName(qsizetype place) const = 0;

    void note(const QByteArray &entry, const QString &reason)
    {
        const QString line = TitleTransferText::tr("%1 was passed over: %2").arg(exactText(entry), reason);
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
        return m_state ? m_notes : QStringList{backups::detail(m_state.error())} + m_notes;
    }

    std::optional<FolderHandle> m_source;
    std::optional<StagedFolder> m_staged; ///< None in a trial.
    QList<QByteArray> m_titles;
    QList<qsizetype> m_copied; ///< Places in m_titles.
    Result<> m_state;          ///< An error when it makes no sense to go on.
    bool m_fileFailed = false; ///< Something could not be read or written, and the others went on.

private:
    /// Opens the folder @p parent, which a trial may find missing.
    Result<> lookAt(const QString &parent)
    {
        auto folder = FolderHandle::open(parent);
        if (!folder)
            return folder.isError(Error::Kind::Missing) ? Result<>() : folder.error();
        m_parent.emplace(*std::move(folder));
        return {};
    }

    /// Copies the title at @p place; a trial reads it only. What of it cannot be read is noted; the error is
    /// that of writing.
    Result<> copyTitle(qsizetype place)
    {
        const QByteArray &name = m_titles[place];
        const auto from = m_source->openFolder(name);
        if (!from) {
            noteFailure(name, from.error().reason);
            return {};
        }
        noteTitlesInside(name);
        std::optional<FolderHandle> to;
        if (!isTrial()) {
            auto made = m_staged->folder().makeFolder(stagedName(place));
            if (!made)
                return Error{.path = exactText(name), .reason = made.error().reason};
            to.emplace(*std::move(made));
        }
        for (const QStringView titleFile : titleFiles) {
            const QByteArray file = name + '/' + titleFile.toUtf8();
            const auto bytes = from->read(titleFile.toUtf8());
            if (bytes.isError(Error::Kind::Missing))
                note(file, TitleTransferText::tr("it is missing"));
            else if (!bytes)
                noteFailure(file, bytes.error().reason);
            else if (const Result<> written = to ? to->write(titleFile.toUtf8(), *bytes) : Result<>();
                     !written)
                return Error{.path = exactText(file), .reason = written.error().reason};
        }
        m_copied.append(place);
        return {};
    }

    void noteTitlesInside(const QByteArray &folder)
    {
        const auto inside = m_source->openFolder(folder);
        const auto entries = inside ? inside->entries() : inside.error();
        if (!entries)
            return noteFailure(folder, entries.error().reason);
        for (const FolderHandle::Entry &entry : *entries) {
            if (isTitleFolder(entry.name))
                note(folder + '/' + entry.name, TitleTransferText::tr("it lies in another folder"));
        }
    }

    const backups::Mode m_mode;
    std::optional<FolderHandle> m_parent; ///< Of a trial, where it exists.
    qsizetype m_next = 0;
    QStringList m_notes;
};

class TitleBackup final : public Transfer
{
public:
    TitleBackup(const QString &to, backups::Existing existing, backups::Mode mode)
        : Transfer(mode), m_place(QDir::cleanPath(QFileInfo(to).absoluteFilePath())), m_existing(existing)
    {
        m_state = backups::mayBeMade(to, backups::titlesExtension, existing);
        m_isRefused = !m_state;
        if (m_state)
            m_state = open(mwqnAppSuppLoc, QFileInfo(m_place).path());
        if (isTrial() && !m_source && m_state.isError(Error::Kind::Missing)) { // It would have been made.
            m_state = {};
            return;
        }
        auto found = m_state ? findTitles() : m_state.error();
        if (found)
            m_titles = *std::move(found);
        else
            m_state = found.error();
    }

    BackupResult finish() override
    {
        if (m_state && m_titles.isEmpty() && !m_fileFailed)
            return {.outcome = BackupResult::Nothing,
                    .sentence = translated("Backups", backups::nothingToBackup),
                    .details = details()};
        if (m_state)
            m_state = put();
        if (!m_state)
            qCWarning(log).noquote() << backups::detail(m_state.error());
        // Only now: an older backup may still bear such a name while the new one is not safe.
        else if (!isTrial())
            removeAbandoned(QFileInfo(m_place).path());
        return result();
    }

private:
    QByteArray stagedName(qsizetype place) const override { return m_titles[place]; }

    Result<> put()
    {
        const QString name = QFileInfo(m_place).fileName();
        if (m_copied.isEmpty())
            return Error{.path = m_place, .reason = TitleTransferText::tr("no title could be read")};
        if (isTrial())
            return {};
        // The older backup may hold what could not be read now.
        if (m_fileFailed && m_staged->parent().exists(QFile::encodeName(name)))
            return Error{
                .path = m_place,
                .reason = TitleTransferText::tr("it was not replaced, since not everything could be read")};
        return m_staged->putInPlace(name, StagedFolder::Content::Folders,
                                    m_existing == backups::Existing::Replace);
    }

    [[nodiscard]] BackupResult result() const
    {
        const bool isWhole = m_state && !m_fileFailed;
        BackupResult result{
            .outcome = isWhole       ? BackupResult::Done
                       : m_isRefused ? BackupResult::Refused
                                     : BackupResult::Failed,
            .sentence = translated("Backups", isWhole ? backups::backupSucceeded : backups::backupFailed),
            .details = details(),
            .fileFailed = !isWhole && !m_isRefused};
        if (m_state.isDone()) {
            result.copied = int(m_copied.size());
            for (const qsizetype place : m_copied)
                result.items.append(item(m_titles[place]));
        }
        if (m_state.isDone() && m_fileFailed)
            result.informativeText =
                TitleTransferText::tr("%1 holds what could be read, but not all").arg(m_place);
        else if (m_state.isDone() && !m_state)
            result.sentence = failureLine(m_state.error());
        return result;
    }

    QString m_place;
    backups::Existing m_existing;
    bool m_isRefused = false;
};

class TitleRestore final : public Transfer
{
public:
    TitleRestore(const QString &from, backups::Mode mode) : Transfer(mode)
    {
        m_state = open(from, mwqnAppSuppLoc);
        const auto found = m_state ? findTitles() : m_state.error();
        if (!found) {
            m_state = found.error();
            return;
        }
        for (const QByteArray &title : *found) {
            const Result<bool> isThere = isInParent(title);
            if (isThere)
                (*isThere ? m_ignored : m_titles).append(title);
            else
                noteFailure(title, isThere.error().reason);
        }
    }

    BackupResult finish() override
    {
        if (isTrial()) {
            for (const qsizetype place : std::as_const(m_copied))
                m_restored.append(m_titles[place]);
        } else if (!m_copied.isEmpty()) {
            // Also when the last title could not be written: the others come in.
            if (const Result<> placed = place(); !placed && m_state)
                m_state = placed;
            if (!m_restored.isEmpty())
                keepOriginals();
        }
        QList<BackupItem> items;
        for (const QByteArray &title : std::as_const(m_restored))
            items.append(item(title));
        for (const QByteArray &title : std::as_const(m_ignored)) {
            items.append(item(title, true));
            if (!isTrial())
                logImported(title);
        }
        return {.outcome = m_state ? BackupResult::Done : BackupResult::Failed,
                .copied = m_imported,
                .ignored = int(m_ignored.size()),
                .sentence = sentence(),
                .informativeText = explanation(),
                .items = items,
                .details = details(),
                .fileFailed = m_fileFailed || !m_state};
    }

private:
    // Whatever lies in the data folder under a title's name is listed; so a staged title has another one.
    QByteArray stagedName(qsizetype place) const override { return QByteArray::number(place); }

    Result<> place()
    {
        if (const Result<> synced = m_staged->folder().syncFileSystem(); !synced)
            return Error{.path = mwqnAppSuppLoc, .reason = synced.error().reason};
        for (const qsizetype place : std::as_const(m_copied)) {
            const QByteArray &title = m_titles[place];
            const Result<> moved = m_staged->folder().move(stagedName(place), m_staged->parent(), title);
            if (!moved) {
                noteFailure(title, moved.error().reason);
                continue;
            }
            ++m_imported;
            logImported(title);
            m_restored.append(title);
        }
        return m_staged->parent().sync();
    }

    static void logImported(const QByteArray &title)
    {
        qCInfo(log).noquote() << "imported" << exactText(title);
    }

    [[nodiscard]] QString sentence() const
    {
        if (m_imported == 0)
            return TitleTransferText::tr("No software titles were imported.");
        const QString imported =
            TitleTransferText::tr("%n software titles were imported.", nullptr, m_imported);
        return m_ignored.isEmpty() ? imported
                                   : imported + u'\n' +
                                         TitleTransferText::tr("%n software titles were ignored.", nullptr,
                                                               int(m_ignored.size()));
    }

    [[nodiscard]] QString explanation() const
    {
        return m_imported > 0 && m_ignored.isEmpty()
                   ? QString()
                   : TitleTransferText::tr("Software titles are not imported if an item exists in the "
                                           "software list with the same "
                                           "name.");
    }

    /// Keeps the files of the restored titles as what they came from, where nothing is known of them.
    void keepOriginals() const
    {
        (void)Journal::ofDataFolder().change([this](Database &) -> Result<> {
            for (const QByteArray &title : m_restored) {
                const auto folder = m_staged->parent().openFolder(title);
                const auto pad = folder ? folder->read(title_folder::padFile.toUtf8()) : folder.error();
                const QString name = exactText(title.chopped(title_folder::extension.size()));
                if (!pad)
                    continue;
                if (Result<> kept = originals::keep(name, {*pad, title_folder::padFile.toString()},
                                                    originals::Keeping::First);
                    !kept)
                    return kept;
            }
            return {};
        });
    }

    QList<QByteArray> m_ignored;
    QList<QByteArray> m_restored;
    int m_imported = 0;
};

} // namespace

std::unique_ptr<TitleTransfer> TitleTransfer::backup(const QString &to, backups::Existing existing,
                                                     backups::Mode mode)
{
    return std::make_unique<TitleBackup>(to, existing, mode);
}

std::unique_ptr<TitleTransfer> TitleTransfer::restore(const QString &from, backups::Mode mode)
{
    return std::make_unique<TitleRestore>(from, mode);
}

} // namespace quillon
