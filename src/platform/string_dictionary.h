#pragma once

#include <QString>

#include <map>

namespace quillon {

/// Orders as a reader of a list expects, case aside; names that differ only in case stay different.
struct CaseInsensitiveOrder
{
    bool operator()(const QString &left, const QString &right) const
    {
        const int order = left.compare(right, Qt::CaseInsensitive);
        return order != 0 ? order < 0 : left < right;
    }
};

/// Text by name, walked in case-insensitive order of the names.
using StringDictionary = std::map<QString, QString, CaseInsensitiveOrder>;

} // namespace quillon
