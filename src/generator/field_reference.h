#pragma once

#include <QString>

namespace quillon {

/// The manual's chapter of all fields, as the editor's pages show them: what each is called, takes and is
/// recorded for. It is found by trying values out, so that it says what the program does.
QString fieldReference();

/// A table of everything that is found in a PAD file, by its id.
QString findingReference();

/// The rules of the packs that come with Quillon.
QString packReference();

} // namespace quillon
