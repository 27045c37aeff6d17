#pragma once

#include "platform/result.h"

#include <QByteArray>
#include <QString>

#include <functional>
#include <memory>
#include <optional>

struct sqlite3;
struct sqlite3_stmt;

namespace quillon {

/// A prepared statement with its values; step through its rows by next().
///
/// Texts go in and come out UTF-16 unit for unit: as UTF-8 where that gives the same text back, else (lone
/// surrogates, U+FEFF at the beginning) as a blob of their units. Equal texts are stored equally, so that "="
/// finds them.
class Statement
{
public:
    /// Goes to the next row; false when there is none.
    Result<bool> next();

    /// The columns of the row, from 0.
    [[nodiscard]] bool isNull(int column) const;
    [[nodiscard]] qint64 number(int column) const;
    [[nodiscard]] std::optional<qint64> numberOrNone(int column) const
    {
        return isNull(column) ? std::nullopt : std::optional(number(column));
    }
    [[nodiscard]] QString text(int column) const;
    [[nodiscard]] QByteArray bytes(int column) const;

private:
    friend class Database;
    Statement(sqlite3 *database, sqlite3_stmt *statement, const QString &path);
    void bind(int place, qint64 value);
    void bind(int place, const QString &value);
    void bind(int place, const QByteArray &value);
    void bind(int place, std::nullopt_t value);
    template<typename Value>
    void bind(int place, const std::optional<Value> &value)
    {
        value ? bind(place, *value) : bind(place, std::nullopt);
    }
    void note(int code);

    struct Finalize
    {
        void operator()(sqlite3_stmt *statement) const;
    };
    std::unique_ptr<sqlite3_stmt, Finalize> m_statement;
    sqlite3 *m_database;
    QString m_path;
    int m_failure = 0; ///< The first code that was none of success.
};

/**
 * One open SQLite file. This class and Statement alone know the library.
 *
 * Errors bear the file's path: Unintelligible when it is damaged or no database at all, Unreadable when it
 * cannot be opened, NotDone for all else (a full disk, a file that is read-only or locked by another program,
 * for which half a second is waited).
 *
 * The file must not be opened and closed by other means meanwhile: that would take away its locks.
 */
class Database
{
public:
    enum class Opening
    {
        MakeMissing,
        ExistingOnly,
        ForReading ///< Only the file itself: no log beside it, and no lock.
    };

    /// Opens the file without changing it. But for reading, what the logs beside it ask for is done first,
    /// and one that a stranger wrote can have any file removed.
    static Result<Database> open(const QString &path, Opening opening);

    /// A statement with its values in the order of its question marks: numbers (qint64), QString, QByteArray,
    /// std::nullopt or an optional of them.
    template<typename... Values>
    Result<Statement> prepare(const char *sql, const Values &...values)
    {
        Result<Statement> statement = prepared(sql);
        if (statement) {
            [[maybe_unused]] int place = 0;
            (statement->bind(++place, values), ...);
        }
        return statement;
    }

    /// The same, run to its end; rows are passed over.
    template<typename... Values>
    Result<> run(const char *sql, const Values &...values)
    {
        Result<Statement> statement = prepare(sql, values...);
        return statement ? finish(*statement) : statement.error();
    }

    /// The number in the first column of the first row; 0 where there is none.
    template<typename... Values>
    Result<qint64> number(const char *sql, const Values &...values)
    {
        Result<Statement> statement = prepare(sql, values...);
        return statement ? first(*statement) : statement.error();
    }

    /// Several statements without values, one after the other.
    Result<> execute(const char *statements);

    /// Does @p work in one transaction: all of it is done, and on the disk, or nothing is. Its error is
    /// handed on. Inside of another one it is a part of that.
    Result<> transaction(const std::function<Result<>(Database &)> &work);

    /// The row number that the last INSERT has given.
    [[nodiscard]] qint64 lastId() const;

    /// Copies all of the database, as it is now, into the new file @p path by SQLite's own means.
    [[nodiscard]] Result<> copyTo(const QString &path);

private:
    Database(sqlite3 *database, const QString &path);
    [[nodiscard]] Error error() const;
    Result<Statement> prepared(const char *sql);
    static Result<> finish(Statement &statement);
    static Result<qint64> first(Statement &statement);

    struct Close
    {
        void operator()(sqlite3 *database) const;
    };
    std::unique_ptr<sqlite3, Close> m_database;
    QString m_path;
};

} // namespace quillon
