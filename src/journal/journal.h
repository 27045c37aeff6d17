#pragma once

#include "journal/database.h"

#include <sys/types.h>
#include <type_traits>

namespace quillon {

/**
 * The database beside the titles, which holds what Quillon keeps for the author besides their files: earlier
 * texts, originals of imports, what was deleted. The file "quillon.sqlite" in the data folder.
 *
 * It is made when something is first to be kept in it, and opened when it is first needed: listing and
 * checking do not look at it, and starting does when the list is drawn, for sets that were not finished.
 * Nothing that is stored elsewhere depends on it; without it only extras are gone. What fails with it is told
 * here, once: by a log line, and in the status bar (mwqnFailedExtras). So callers may ignore the results.
 *
 * A file that is damaged, of another program or of a newer version is set aside as
 * "quillon.sqlite.unreadable" before anything is written, and a new one begins. What is no regular file in
 * its place is left alone.
 */
class Journal
{
public:
    using Work = std::function<Result<>(Database &)>;

    /// What a query gives, and the value in it.
    template<typename Query>
    using Found = std::invoke_result_t<const Query &, Database &>;
    template<typename Query>
    using ValueOf = std::remove_cvref_t<decltype(*std::declval<Found<Query> &>())>;

    /// The one of the present data folder.
    static Journal &ofDataFolder();

    /// Does @p work in one transaction, in a database that is made where it is missing. Called inside of
    /// another change it is a part of that. @p work may run again: when the database turns out to be damaged
    /// in the middle, once more, and then in a new one.
    Result<> change(const Work &work);

    /// The same, but without a database there is nothing to do, which is no error.
    Result<> changeExisting(const Work &work);

    /// Lets @p work read. Missing, and nothing is told, where there is no database.
    Result<> read(const Work &work);

    /// What @p query finds, a function of the database that gives a Result; @p none where there is no
    /// database.
    template<typename Query>
    Found<Query> find(const Query &query, ValueOf<Query> none = {})
    {
        Found<Query> found = std::move(none);
        const Result<> done = read([&](Database &database) -> Result<> {
            found = query(database);
            return found ? Result<>() : found.error();
        });
        return done || done.isError(Error::Kind::Missing) ? found : Found<Query>(done.error());
    }

    /// Closes the file; the next call opens it again.
    void close() { m_database.reset(); }

private:
    Journal() = default;
    Result<> changeWith(Database::Opening opening, const Work &work);
    /// Makes m_database the file at path() that can be used, or tells why there is none.
    Result<> open(Database::Opening opening);
    Result<> accept(Database &database, Database::Opening opening);
    [[nodiscard]] static QString path();
    [[nodiscard]] bool isInPlace() const;
    Result<> setAside(const Error &why);

    std::optional<Database> m_database;
    QString m_path; ///< Of the open one.
    dev_t m_device = 0;
    ino_t m_inode = 0;
};

} // namespace quillon
