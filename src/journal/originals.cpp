#include "journal/originals.h"

#include "journal/history.h"
#include "journal/journal.h"
#include "journal/packed_bytes.h"
#include "journal/titles.h"

#include <QCoreApplication>
#include <QDateTime>

using namespace Qt::StringLiterals;

namespace quillon::originals {

namespace {

class OriginalsText
{
    Q_DECLARE_TR_FUNCTIONS(Originals)
};

Result<QByteArray> bytesOf(const Statement &row, int isCompressed, int column)
{
    const QByteArray stored = row.bytes(column);
    if (row.number(isCompressed) == 0)
        return stored;
    if (auto bytes = packed_bytes::unpacked(stored))
        return *std::move(bytes);
    return Error{.kind = Error::Kind::Unintelligible, .reason = OriginalsText::tr("the original is damaged")};
}

Result<Original> newest(Database &database, const QString &title)
{
    auto row = database.prepare("SELECT originals.name, is_compressed, bytes FROM originals"
                                " JOIN titles ON titles.id = title_id WHERE titles.name = ?"
                                " ORDER BY originals.id DESC LIMIT 1",
                                title);
    const Result<bool> hasRow = row ? row->next() : row.error();
    if (!hasRow)
        return hasRow.error();
    if (!*hasRow)
        return Error{Error::Kind::Missing, title, OriginalsText::tr("no original was kept of this title")};
    auto bytes = bytesOf(*row, 1, 2);
    if (!bytes)
        return Error{bytes.error().kind, title, bytes.error().reason};
    return Original{*std::move(bytes), row->text(0)};
}

} // namespace

Result<> keep(const QString &title, const Original &file, Keeping keeping)
{
    return Journal::ofDataFolder().change([&](Database &database) -> Result<> {
        const auto present = newest(database, title);
        if (present && (keeping == Keeping::First || present->bytes == file.bytes))
            return {};
        const Result<qint64> id = journal_titles::idMadeFor(database, title);
        if (!id)
            return id.error();
        const QByteArray compressed = qCompress(file.bytes);
        const bool isSmaller = compressed.size() < file.bytes.size();
        if (Result<> noted = history::appendImport(database, title); !noted)
            return noted;
        return database.run("INSERT INTO originals (title_id, time, name, is_compressed, bytes)"
                            " VALUES (?, ?, ?, ?, ?)",
                            *id, QDateTime::currentMSecsSinceEpoch(), file.name, qint64(isSmaller),
                            isSmaller ? compressed : file.bytes);
    });
}

Result<Original> of(const QString &title)
{
    Result<Original> original = Error{};
    const Result<> read = Journal::ofDataFolder().read([&](Database &database) -> Result<> {
        original = newest(database, title);
        return {};
    });
    return read ? original : read.error();
}

bool has(const QString &title)
{
    return bool(of(title));
}

} // namespace quillon::originals
