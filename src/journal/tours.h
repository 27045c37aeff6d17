#pragma once

#include "journal/database.h"

#include <QList>

/// Where the author stopped on the way from site to site, and what was said of sites. To be called inside of
/// Journal::change() or read().
namespace quillon::tours {

enum class Answer : quint8
{
    Skip, ///< Not with this version.
    Later ///< After all others.
};

struct AnsweredSite
{
    QString site;
    Answer answer;
};

/// What is known of a tour.
struct Record
{
    QString at;                  ///< The site that the author is at; empty before the first.
    QList<AnsweredSite> answers; ///< In the order in which they were given.
};

/// The tour of @p title at @p version; that of another version counts no more.
Result<Record> record(Database &database, const QString &title, const QString &version);

/// The author is at @p site now.
Result<> goTo(Database &database, const QString &title, const QString &version, const QString &site);

/// Notes what the author said of @p site, in place of what was said of it before.
Result<> answer(Database &database, const QString &title, const QString &version,
                const AnsweredSite &answered);

} // namespace quillon::tours
