#include "journal/titles.h"

#include <QCoreApplication>

using namespace Qt::StringLiterals;

namespace quillon::journal_titles {

namespace {

class TitlesText
{
    Q_DECLARE_TR_FUNCTIONS(Titles)
};

} // namespace

Result<qint64> idOf(Database &database, const QString &name)
{
    Result<qint64> id = database.number("SELECT id FROM titles WHERE name = ?", name);
    if (id && *id == 0)
        return Error{Error::Kind::Missing, name, TitlesText::tr("nothing was kept of this title")};
    return id;
}

Result<qint64> idMadeFor(Database &database, const QString &name)
{
    Result<qint64> id = idOf(database, name);
    if (!id.isError(Error::Kind::Missing))
        return id;
    if (const Result<> made = database.run("INSERT INTO titles (name) VALUES (?)", name); !made)
        return made.error();
    return database.lastId();
}

Result<> rename(Database &database, const QString &oldName, const std::optional<QString> &newName)
{
    if (newName) {
        if (Result<> gone =
                database.run("DELETE FROM titles WHERE name = ? AND name <> ?", *newName, oldName);
            !gone)
            return gone;
    }
    return database.run("UPDATE titles SET name = ? WHERE name = ?", newName, oldName);
}

} // namespace quillon::journal_titles
