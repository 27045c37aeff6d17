#pragma once

#include <QByteArray>
#include <QString>

namespace quillon {

class PadForm;

/// Makes PAD 3.10 documents: always all lines, whatever the values.
///
/// Values are written as they stand, without any escaping: an "&" or "<" in a value makes the document
/// ill-formed, which every reader of ours takes, and which download sites have come to expect.
namespace pad_writer {

/// The document of a title in which nothing is entered yet.
QByteArray skeleton();

/// The document of what @p form holds.
QByteArray document(const PadForm &form);

/// A stored document as it is exported: each "&" between two blanks becomes "&amp;", all else stays. What is
/// not UTF-8 is turned into it, as it is read in the editor, and a declaration that names another encoding is
/// put right where the text has letters that depend on it.
QByteArray exported(const QByteArray &stored);

} // namespace pad_writer

} // namespace quillon
