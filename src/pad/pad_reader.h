#pragma once

#include <QByteArray>

namespace quillon {

class PadDocument;
class PadForm;

/// Fills @p form from a PAD document of any origin.
///
/// Elements are found by name at any depth; one that is missing leaves its control as it is, so that a
/// control may go on showing what it showed before. What a list of values does not hold is dropped.
/// Multi-line texts are cut out as they stand in the file, entities included; one whose tags cannot be found
/// literally reads as empty. Nothing is checked and nothing is stored. False when the
/// document holds none of the elements.
bool loadPADData(const PadDocument &document, PadForm &form);
bool loadPADData(const QByteArray &stored, PadForm &form);

} // namespace quillon
