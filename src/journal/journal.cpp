#include "journal/journal.h"

#include "journal/journal_schema.h"
#include "platform/descriptor.h"
#include "platform/folder_handle.h"
#include "store/process_state.h"
#include "store/storage_status.h"

#include <QCoreApplication>
#include <QDateTime>
#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <cerrno>
#include <sys/stat.h>

using namespace Qt::StringLiterals;

namespace quillon {

namespace {

class JournalText
{
    Q_DECLARE_TR_FUNCTIONS(Journal)
};

constexpr QStringView fileName = u"quillon.sqlite";

/// What SQLite keeps beside its file. The log comes first: one that is left behind would be taken for the
/// next database's.
constexpr const char *companions[] = {"-wal", "-shm", "-journal"};

/// A larger file than this (bytes) is looked through once a day only; a smaller one takes a few milliseconds.
constexpr qint64 smallFile = 2'097'152;
constexpr qint64 dayInMilliseconds = 86'400'000;

constexpr auto settings = R"(
    PRAGMA synchronous = FULL;
    PRAGMA foreign_keys = ON;
    PRAGMA cell_size_check = ON;
    PRAGMA secure_delete = ON;
    PRAGMA wal_autocheckpoint = 4000;
)";

/// What came of the database at @p path, told; what is none of its failures is the caller's to tell.
Result<> told(const QString &path, Result<> result)
{
    if (result)
        forgetExtrasFailure(path);
    else if (result.error().path == path && !result.isError(Error::Kind::Missing))
        reportExtrasFailure(path, result.error());
    return result;
}

Error unintelligible(const QString &path, const QString &reason)
{
    return {Error::Kind::Unintelligible, path, reason};
}

/// Whether the present version can use the database, or make one of it that it can.
Result<> judgeHeader(Database &database, const QString &path)
{
    const Result<qint64> owner = database.number("PRAGMA application_id");
    if (!owner)
        return owner.error();
    const Result<qint64> version = database.number("PRAGMA user_version");
    if (!version)
        return version.error();
    const Result<qint64> tables = database.number("SELECT count(*) FROM sqlite_schema");
    if (!tables)
        return tables.error();
    const bool isEmpty = *owner == 0 && *version == 0 && *tables == 0;
    if (*owner != journal_schema::applicationId && !isEmpty)
        return unintelligible(path, JournalText::tr("it is another program's"));
    if (*version > journal_schema::newestVersion())
        return unintelligible(path, JournalText::tr("it was made by a newer version of Quillon"));
    return isEmpty ? Result<>(Error{Error::Kind::Missing, path, JournalText::tr("it is empty")}) : Result<>();
}

/// What is damaged; empty when nothing is.
Result<QString> damage(Database &database)
{
    Result<Statement> findings = database.prepare("PRAGMA quick_check(1)");
    if (!findings)
        return findings.error();
    const Result<bool> hasRow = findings->next();
    if (!hasRow)
        return hasRow.error();
    const QString finding = findings->text(0).simplified();
    return finding == u"ok" ? QString() : finding;
}

/// Looks the database through where that is due.
Result<> lookThrough(Database &database, const QString &path, Database::Opening opening)
{
    const qint64 now = QDateTime::currentMSecsSinceEpoch();
    const Result<qint64> checked = database.number("SELECT checked FROM state");
    if (!checked)
        return checked.error();
    const bool isSmall = QFileInfo(path).size() <= smallFile;
    if (!isSmall && *checked <= now && now - *checked < dayInMilliseconds)
        return {};
    const Result<QString> found = damage(database);
    if (!found)
        return found.error();
    if (!found->isEmpty())
        return unintelligible(path, JournalText::tr("it is damaged: %1").arg(*found));
    if (isSmall || opening == Database::Opening::ExistingOnly)
        return {};
    return database.run("UPDATE state SET checked = ?", now);
}

} // namespace

/// Whether the disk gives every byte of the database at @p path, which must not be open: what it fails to
/// read SQLite takes for damage.
static Result<> readThrough(const QString &path)
{
    static constexpr qint64 piece = 1'048'576;
    for (const QString &place : {path, QString(path + u"-wal")}) {
        QFile file(place);
        bool isOpen = file.open(QIODevice::ReadOnly | QIODevice::Unbuffered);
        while (isOpen)
            isOpen = !file.read(piece).isEmpty();
        if (file.error() != QFileDevice::NoError && file.exists())
            return Error{Error::Kind::Unreadable, path, file.errorString()};
    }
    return {};
}

Journal &Journal::ofDataFolder()
{
    static Journal journal;
    return journal;
}

QString Journal::path()
{
    return mwqnAppSuppLoc + fileName;
}

/// Whether the open file is the one that has the name now.
bool Journal::isInPlace() const
{
    struct stat there = {};
    return m_path == path() && ::lstat(QFile::encodeName(m_path).constData(), &there) == 0 &&
           there.st_dev == m_device && there.st_ino == m_inode;
}

Result<> Journal::open(Database::Opening opening)
{
    if (m_database && isInPlace())
        return {};
    m_database.reset();
    m_path = path();
    struct stat there = {};
    const bool isThere = ::lstat(QFile::encodeName(m_path).constData(), &there) == 0;
    if (!isThere && (errno != ENOENT || opening == Database::Opening::ExistingOnly))
        return systemError(Error::Kind::Unreadable, m_path, JournalText::tr("it cannot be looked at"));
    if (isThere && !S_ISREG(there.st_mode))
        return Error{Error::Kind::Unreadable, m_path, JournalText::tr("it is no regular file")};
    Result<Database> database = Database::open(m_path, opening);
    if (!database)
        return database.error();
    if (Result<> accepted = accept(*database, opening); !accepted)
        return accepted;
    if (::lstat(QFile::encodeName(m_path).constData(), &there) != 0)
        return systemError(Error::Kind::NotDone, m_path, JournalText::tr("it is gone"));
    m_device = there.st_dev;
    m_inode = there.st_ino;
    m_database = *std::move(database);
    return {};
}

Result<> Journal::accept(Database &database, Database::Opening opening)
{
    Result<> header = judgeHeader(database, m_path);
    if (!header && (!header.isError(Error::Kind::Missing) || opening == Database::Opening::ExistingOnly))
        return header;
    if (Result<> set = database.execute(settings); !set)
        return set;
    if (opening == Database::Opening::MakeMissing) {
        if (Result<> logged = database.execute("PRAGMA journal_mode = WAL"); !logged)
            return logged;
    }
    if (Result<> migrated = journal_schema::migrate(database); !migrated)
        return migrated;
    return lookThrough(database, m_path, opening);
}

/// Moves the file @p name of @p folder, and what belongs to it, to @p kept.
static Result<> moveAll(const FolderHandle &folder, const QByteArray &name, const QByteArray &kept)
{
    for (const char *companion : companions) {
        if (!folder.exists(name + companion))
            continue;
        if (Result<> moved = folder.move(name + companion, folder, kept + companion); !moved)
            return moved;
    }
    Result<> moved = folder.move(name, folder, kept);
    return moved ? folder.sync() : moved;
}

Result<> Journal::setAside(const Error &why)
{
    m_database.reset();
    const auto folder = FolderHandle::open(QDir::cleanPath(mwqnAppSuppLoc));
    if (!folder)
        return Error{why.kind, why.path, folder.error().reason};
    const QByteArray name = fileName.toUtf8();
    QByteArray kept = name + ".unreadable";
    for (int number = 2; folder->exists(kept); ++number)
        kept = name + ".unreadable-" + QByteArray::number(number);
    const Result<> moved = moveAll(*folder, name, kept);
    if (!moved.isDone())
        return Error{
            why.kind, why.path,
            JournalText::tr("%1; it could not be set aside: %2").arg(why.reason, moved.error().reason)};
    const QString keptName = QFile::decodeName(kept);
    const QString reason =
        JournalText::tr("%1; it was set aside as %2, and a new one begins").arg(why.reason, keptName);
    reportExtrasFailure(mwqnAppSuppLoc + keptName, Error{why.kind, why.path, reason});
    return {};
}

Result<> Journal::changeWith(Database::Opening opening, const Work &work)
{
    const auto attempt = [this, opening, &work] {
        const Result<> opened = open(opening);
        return opened ? m_database->transaction(work) : opened;
    };
    const auto isDamaged = [](const Result<> &result) {
        return result.isError(Error::Kind::Unintelligible) && result.error().path == path();
    };
    Result<> done = attempt();
    if (isDamaged(done)) {
        m_database.reset();
        done = readThrough(path());
        if (done)
            done = attempt();
    }
    if (isDamaged(done)) {
        done = setAside(done.error());
        if (done)
            done = attempt();
    }
    if (opening == Database::Opening::ExistingOnly && done.isError(Error::Kind::Missing))
        return {};
    return told(path(), std::move(done));
}

Result<> Journal::change(const Work &work)
{
    return changeWith(Database::Opening::MakeMissing, work);
}

Result<> Journal::changeExisting(const Work &work)
{
    return changeWith(Database::Opening::ExistingOnly, work);
}

Result<> Journal::read(const Work &work)
{
    const Result<> opened = open(Database::Opening::ExistingOnly);
    Result<> done = opened ? work(*m_database) : opened;
    return done ? done : told(path(), std::move(done)); // What could not be written is not mended by reading.
}

} // namespace quillon
