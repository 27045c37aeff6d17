#pragma once

#include "journal/tours.h"
#include "ledger/standing.h"
#include "pad/field_catalogue.h"

#include <QLocale>

namespace quillon {

/**
 * The way from site to site on which a title's submissions are brought up to date: every site of the
 * catalogue that has another version, in the catalogue's order, those put off at the end. Sites that are gone
 * are no part of it, nor those that the author leaves out for this version. What was said and where the
 * author stopped is in the journal.
 */
class Tour
{
public:
    /// Where the tour of @p title stands, as the stored files and the journal have it. An error when one of
    /// them cannot be read.
    static Result<Tour> of(const QString &title);

    /// A site with the version that is there, and what has changed since that was sent; no fields when it is
    /// not known what was sent.
    struct Stop
    {
        QString site;
        QString version;
        std::optional<QList<FieldId>> changed;
    };

    /// The sites that are left, in order.
    [[nodiscard]] QStringList sites() const;
    [[nodiscard]] bool isLeft(const QString &site) const { return standingAt(m_left, site); }
    /// How many there were when it began, and how many have been done or left out.
    [[nodiscard]] qsizetype total() const { return m_left.size() + m_done; }
    [[nodiscard]] qsizetype done() const { return m_done; }
    /// The site at which the author stopped, or when that is done the one that follows; empty when none is
    /// left.
    [[nodiscard]] QString at() const { return m_at; }
    /// The one after @p site, and after the last the first; empty when none is left.
    [[nodiscard]] QString after(const QString &site) const;
    /// What is to be said of @p site, which must be left.
    [[nodiscard]] Result<Stop> stop(const QString &site) const;
    /// The number of @p site among all of the tour, from 1.
    [[nodiscard]] qsizetype number(const QString &site) const;

    /// Notes that the author is at @p site.
    Result<> goTo(const QString &site);
    /// Notes what the author said of @p site, and goes on to the one after it.
    Result<> answer(const QString &site, tours::Answer answer);

private:
    /// The first that stands after @p site in the alphabet, or else the very first.
    [[nodiscard]] QString firstAfter(const QString &site) const;
    void arrange(const QList<Standing> &stale, const QList<tours::AnsweredSite> &answers);

    QString m_title;
    QString m_version;
    QList<Standing> m_left;
    qsizetype m_done = 0;
    QString m_at;
};

/// "4 of 11 to bring up to date: Softpedia has 1.3; since then changed: version, size". The site's name is
/// left out where @p isAtSite says that the author sees it.
QString tourLine(const Tour &tour, const Result<Tour::Stop> &stop, bool isAtSite,
                 const QLocale &locale = QLocale::c());

} // namespace quillon
