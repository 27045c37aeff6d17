#include "findings/advice.h"
#include "pad/import_findings.h"
#include "pad/pad_document.h"
#include "pad/pad_form.h"
#include "pad/pad_reader.h"
#include "pad/pad_writer.h"
#include "store/summary_file.h"
#include "validation/error_pass.h"
#include "validation/field_rules.h"

#include <cstdlib>

using namespace quillon;

/// Takes any bytes for a PAD file, loaded, imported and judged; to load it again must change nothing.
extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    const QByteArray bytes(reinterpret_cast<const char *>(data), qsizetype(size));
    static PadForm form;
    const PadDocument document(bytes);
    loadPADData(document, form);
    const QByteArray once = pad_writer::document(form);
    loadPADData(document, form);
    if (pad_writer::document(form) != once)
        std::abort();
    summary_file::parse(summary_file::textForImport(document).toUtf8());
    importFindings(document);
    ErrorPass errors;
    field_rules::checkEntries(form, errors);
    findings::all(errors.errors(), {.form = form, .document = &document});
    return 0;
}
