#pragma once

#include <QList>
#include <QString>

#include <memory>
#include <optional>

namespace quillon {

/**
 * A compiled regular expression in PCRE syntax.
 *
 * Works on UTF-16 units, as every length in Quillon does, so that a lone surrogate is text like any other.
 * "." does not match a line feed. A pattern that does not compile matches nothing.
 */
class Regex
{
public:
    /// Where the whole pattern (group 0) or one of its groups matched, in UTF-16 units.
    struct Range
    {
        qsizetype start = -1; ///< -1 for a group that took no part.
        qsizetype length = 0;
    };

    /// One match; group 0 is the whole of it.
    class Match
    {
    public:
        Match(QStringView subject, QList<Range> groups) : m_subject(subject), m_groups(std::move(groups)) {}

        /// The text of @p group, empty for a group that took no part or does not exist. Refers to the
        /// subject.
        [[nodiscard]] QStringView captured(qsizetype group = 0) const;
        [[nodiscard]] Range range(qsizetype group = 0) const { return m_groups.value(group); }

    private:
        QStringView m_subject;
        QList<Range> m_groups;
    };

    explicit Regex(QStringView pattern);

    /// False when the pattern did not compile; the reason is in the log.
    [[nodiscard]] bool isValid() const { return m_program != nullptr; }

    /// The leftmost match in @p subject, which must outlive it.
    [[nodiscard]] std::optional<Match> firstMatch(QStringView subject) const { return matchFrom(subject, 0); }

    /// @p subject with every match replaced by @p replacement, in which $1 and ${1} stand for a group's text,
    /// an unknown group is empty and a "$" without a number stays.
    [[nodiscard]] QString replaceAll(const QString &subject, QStringView replacement) const;

    /// A pattern that matches exactly @p text: for names and values that were not written as patterns.
    static QString escaped(QStringView text);

private:
    class Program;

    [[nodiscard]] std::optional<Match> matchFrom(QStringView subject, qsizetype offset) const;

    std::shared_ptr<Program> m_program;
};

} // namespace quillon
