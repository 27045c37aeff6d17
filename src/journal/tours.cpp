#include "journal/tours.h"

#include "journal/statement_rows.h"
#include "journal/titles.h"

using namespace Qt::StringLiterals;

namespace quillon::tours {

namespace {

const QString skip = u"skip"_s;
const QString later = u"later"_s;

} // namespace

Result<Record> record(Database &database, const QString &title, const QString &version)
{
    const auto at =
        statementRows<QString>(database.prepare("SELECT site FROM tours JOIN titles ON titles.id = title_id"
                                                " WHERE name = ? AND version = ?",
                                                title, version),
                               [](const Statement &row) { return row.text(0); });
    if (!at)
        return at.error();
    auto answers = statementRows<AnsweredSite>(
        database.prepare("SELECT site, answer FROM tour_answers JOIN titles ON titles.id = title_id"
                         " WHERE name = ? AND version = ? ORDER BY tour_answers.id",
                         title, version),
        [](const Statement &row) {
            return AnsweredSite{row.text(0), row.text(1) == skip ? Answer::Skip : Answer::Later};
        });
    if (!answers)
        return answers.error();
    return Record{.at = at->value(0), .answers = *std::move(answers)};
}

Result<> goTo(Database &database, const QString &title, const QString &version, const QString &site)
{
    const Result<qint64> id = journal_titles::idMadeFor(database, title);
    return id ? database.run("REPLACE INTO tours (title_id, version, site) VALUES (?, ?, ?)", *id, version,
                             site)
              : id.error();
}

Result<> answer(Database &database, const QString &title, const QString &version,
                const AnsweredSite &answered)
{
    const Result<qint64> id = journal_titles::idMadeFor(database, title);
    return id ? database.run("REPLACE INTO tour_answers (title_id, site, version, answer)"
                             " VALUES (?, ?, ?, ?)",
                             *id, answered.site, version, answered.answer == Answer::Skip ? skip : later)
              : id.error();
}

} // namespace quillon::tours
