#pragma once

#include "pad/field_catalogue.h"

#include <QStringList>

/// The fixed lists of values that a field may take, each entry the very text of the PAD file.
namespace quillon::vocabulary {

const QStringList &programTypes();
const QStringList &releaseStatuses();
const QStringList &installSupport();
const QStringList &expireBases();
/// Three-letter currency codes; withdrawn ones are kept, because old PAD files name them.
const QStringList &currencies();
/// Group, "::" and sub-category as one text.
const QStringList &categories();
const QStringList &languages();
const QStringList &operatingSystems();

/// The list of a pop-up or check-list field, without the pop-up's empty item; an empty list for any other
/// field.
const QStringList &of(FieldId field);

} // namespace quillon::vocabulary
