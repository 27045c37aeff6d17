#pragma once

#include <QCollator>

namespace quillon {

/// The order in which people read names: by the user's own alphabet, case aside, and numbers by their value.
/// Where no locale is set, one that knows an alphabet is taken.
inline QCollator naturalOrder()
{
    QCollator collator(QLocale().language() == QLocale::C ? QLocale(QLocale::English) : QLocale());
    collator.setCaseSensitivity(Qt::CaseInsensitive);
    collator.setNumericMode(true);
    return collator;
}

} // namespace quillon
