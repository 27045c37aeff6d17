#pragma once

#include "pad/field_catalogue.h"

/// What sentences call the fields.
namespace quillon::field_phrases {

/// Without an article, such as "icon address".
QStringView of(FieldId field);

/// Whether it is a plural, such as "keywords".
bool isPlural(FieldId field);

} // namespace quillon::field_phrases
