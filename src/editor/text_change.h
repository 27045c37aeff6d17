#pragma once

#include <QString>

#include <algorithm>

namespace quillon {

/// The one stretch in which two texts differ, so that a widget can be brought from one to the other without
/// touching the rest: its cursor, selection and undo history stay.
struct TextChange
{
    qsizetype start = 0;
    qsizetype removed = 0;
    QString inserted;

    /// What makes @p to of @p from.
    static TextChange between(const QString &from, const QString &to)
    {
        const auto first = std::mismatch(from.begin(), from.end(), to.begin(), to.end());
        const qsizetype start = first.first - from.begin();
        const auto last = std::mismatch(from.rbegin(), std::make_reverse_iterator(first.first), to.rbegin(),
                                        std::make_reverse_iterator(first.second));
        const qsizetype kept = last.first - from.rbegin();
        return {start, from.size() - kept - start, to.sliced(start, to.size() - kept - start)};
    }

    /// Where a cursor at @p position stands after the change: with the text around it.
    [[nodiscard]] qsizetype moved(qsizetype position) const
    {
        if (position <= start)
            return position;
        return position >= start + removed ? position - removed + inserted.size() : start + inserted.size();
    }
};

} // namespace quillon
