#pragma once

#include <QString>

/// Texts that are too long for their field. Lengths are UTF-16 units.
namespace quillon::text_cutting {

/// As many whole sentences of @p text as are no longer than @p most, if they are at least half of that; else
/// as many whole words, without the signs that would stand at their end. Empty where there is no such place
/// to cut at.
QString cut(const QString &text, int most);

/// As many of the comma-delimited keywords of @p text as are no longer than @p most, each the first time
/// only.
QString keywords(const QString &text, int most);

} // namespace quillon::text_cutting
