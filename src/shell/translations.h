#pragma once

#include <QLocale>

/// The windows in the author's language.
namespace quillon::translations {

/// Where quillon_<locale>.qm lie.
QString folder();

/// From now on texts come in the first of the languages of @p locale that @p folder has, and Qt's own dialogs
/// with them. False when there is none, or English comes first: that needs no file.
bool load(const QLocale &locale, const QString &folder);

} // namespace quillon::translations
