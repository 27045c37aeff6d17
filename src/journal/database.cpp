#include "journal/database.h"

#include <QCoreApplication>
#include <QFile>
#include <QFileInfo>
#include <QUrl>

#include <algorithm>
#include <array>
#include <sqlite3.h>

using namespace Qt::StringLiterals;

namespace quillon {

namespace {

class DatabaseText
{
    Q_DECLARE_TR_FUNCTIONS(Database)
};

constexpr int patienceInMilliseconds = 500;

Error::Kind kindOf(int code)
{
    switch (code & 0xff) {
    case SQLITE_CORRUPT:
    case SQLITE_NOTADB:
        return Error::Kind::Unintelligible;
    case SQLITE_CANTOPEN:
        return Error::Kind::Unreadable;
    default:
        return Error::Kind::NotDone;
    }
}

/// The name by which SQLite takes the file as one that nobody changes, with no log beside it.
QByteArray unchangingName(const QString &path)
{
    return "file://" + QUrl::toPercentEncoding(QFileInfo(path).absoluteFilePath(), "/") + "?immutable=1";
}

Error errorOf(sqlite3 *database, const QString &path)
{
    return {kindOf(::sqlite3_errcode(database)), path, QString::fromUtf8(::sqlite3_errmsg(database))};
}

} // namespace

void Statement::Finalize::operator()(sqlite3_stmt *statement) const
{
    ::sqlite3_finalize(statement);
}

Statement::Statement(sqlite3 *database, sqlite3_stmt *statement, const QString &path)
    : m_statement(statement), m_database(database), m_path(path)
{
}

void Statement::note(int code)
{
    if (m_failure == SQLITE_OK)
        m_failure = code;
}

void Statement::bind(int place, qint64 value)
{
    note(::sqlite3_bind_int64(m_statement.get(), place, value));
}

void Statement::bind(int place, const QString &value)
{
    const QByteArray utf8 = value.toUtf8();
    if (QString::fromUtf8(utf8) == value) {
        note(::sqlite3_bind_text64(m_statement.get(), place, utf8.constData(), quint64(utf8.size()),
                                   SQLITE_TRANSIENT, SQLITE_UTF8));
    } else {
        const auto size = quint64(value.size()) * sizeof(QChar);
        note(::sqlite3_bind_blob64(m_statement.get(), place, value.constData(), size, SQLITE_TRANSIENT));
    }
}

void Statement::bind(int place, const QByteArray &value)
{
    note(::sqlite3_bind_blob64(m_statement.get(), place, value.constData(), quint64(value.size()),
                               SQLITE_TRANSIENT));
}

void Statement::bind(int place, std::nullopt_t)
{
    note(::sqlite3_bind_null(m_statement.get(), place));
}

Result<bool> Statement::next()
{
    if (m_failure != SQLITE_OK)
        return Error{kindOf(m_failure), m_path, QString::fromUtf8(::sqlite3_errstr(m_failure))};
    const int code = ::sqlite3_step(m_statement.get());
    if (code == SQLITE_ROW || code == SQLITE_DONE)
        return code == SQLITE_ROW;
    return errorOf(m_database, m_path);
}

bool Statement::isNull(int column) const
{
    return ::sqlite3_column_type(m_statement.get(), column) == SQLITE_NULL;
}

qint64 Statement::number(int column) const
{
    return ::sqlite3_column_int64(m_statement.get(), column);
}

QString Statement::text(int column) const
{
    const bool isUtf16 = ::sqlite3_column_type(m_statement.get(), column) == SQLITE_BLOB;
    const auto *stored = static_cast<const char *>(::sqlite3_column_blob(m_statement.get(), column));
    const qsizetype size = ::sqlite3_column_bytes(m_statement.get(), column);
    if (!isUtf16)
        return QString::fromUtf8(stored, size);
    QString text(size / qsizetype(sizeof(QChar)), Qt::Uninitialized);
    std::copy_n(stored, text.size() * qsizetype(sizeof(QChar)), reinterpret_cast<char *>(text.data()));
    return text;
}

QByteArray Statement::bytes(int column) const
{
    const void *bytes = ::sqlite3_column_blob(m_statement.get(), column);
    return {static_cast<const char *>(bytes), ::sqlite3_column_bytes(m_statement.get(), column)};
}

void Database::Close::operator()(sqlite3 *database) const
{
    ::sqlite3_close_v2(database);
}

Database::Database(sqlite3 *database, const QString &path) : m_database(database), m_path(path) {}

Result<Database> Database::open(const QString &path, Opening opening)
{
    static constexpr std::array flags = {SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE, SQLITE_OPEN_READWRITE,
                                         SQLITE_OPEN_READONLY | SQLITE_OPEN_URI};
    const QByteArray name = opening == Opening::ForReading ? unchangingName(path) : QFile::encodeName(path);
    sqlite3 *opened = nullptr;
    const int code =
        ::sqlite3_open_v2(name.constData(), &opened, flags[size_t(opening)] | SQLITE_OPEN_NOMUTEX, nullptr);
    Database database(opened, path);
    if (!opened)
        return Error{Error::Kind::Unreadable, path, DatabaseText::tr("there is no memory for it")};
    if (code != SQLITE_OK)
        return database.error();
    ::sqlite3_busy_timeout(opened, patienceInMilliseconds);
    // What somebody else has put into the file is not trusted to call anything.
    ::sqlite3_db_config(opened, SQLITE_DBCONFIG_DEFENSIVE, 1, nullptr);
    ::sqlite3_db_config(opened, SQLITE_DBCONFIG_TRUSTED_SCHEMA, 0, nullptr);
    return database;
}

Error Database::error() const
{
    return errorOf(m_database.get(), m_path);
}

Result<Statement> Database::prepared(const char *sql)
{
    sqlite3_stmt *statement = nullptr;
    if (::sqlite3_prepare_v2(m_database.get(), sql, -1, &statement, nullptr) != SQLITE_OK)
        return error();
    return Statement(m_database.get(), statement, m_path);
}

Result<> Database::finish(Statement &statement)
{
    for (;;) {
        const Result<bool> hasRow = statement.next();
        if (!hasRow)
            return hasRow.error();
        if (!*hasRow)
            return {};
    }
}

Result<qint64> Database::first(Statement &statement)
{
    const Result<bool> hasRow = statement.next();
    if (!hasRow)
        return hasRow.error();
    return *hasRow ? statement.number(0) : 0;
}

Result<> Database::execute(const char *statements)
{
    if (::sqlite3_exec(m_database.get(), statements, nullptr, nullptr, nullptr) != SQLITE_OK)
        return error();
    return {};
}

Result<> Database::transaction(const std::function<Result<>(Database &)> &work)
{
    if (::sqlite3_get_autocommit(m_database.get()) == 0)
        return work(*this);
    if (Result<> begun = execute("BEGIN IMMEDIATE"); !begun)
        return begun;
    Result<> done = work(*this);
    if (done)
        done = execute("COMMIT");
    // Some errors have ended the transaction already.
    if (!done && ::sqlite3_get_autocommit(m_database.get()) == 0)
        (void)execute("ROLLBACK");
    return done;
}

qint64 Database::lastId() const
{
    return ::sqlite3_last_insert_rowid(m_database.get());
}

Result<> Database::copyTo(const QString &path)
{
    return run("VACUUM INTO ?", path);
}

} // namespace quillon
