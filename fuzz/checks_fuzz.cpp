#include "pad/pad_form.h"
#include "validation/error_pass.h"
#include "validation/field_rules.h"

#include <cstdlib>

using namespace quillon;

/// Takes any lines for what is typed into the texts of a form, one field after the other; judging it twice
/// gives the same.
extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    const QStringList lines =
        QString::fromUtf8(reinterpret_cast<const char *>(data), qsizetype(size)).split(u'\n');
    static PadForm form;
    ErrorPass typing;
    qsizetype line = 0;
    for (const FieldRule &rule : field_rules::table) {
        auto *const text = qobject_cast<TextControl *>(&form.control(rule.field));
        if (!text)
            continue;
        text->setText(lines[line++ % lines.size()]);
        field_rules::textChanged(rule.tag, form, typing);
        field_rules::editingEnded(rule.tag, form, typing);
    }
    ErrorPass once;
    field_rules::checkEntries(form, once);
    ErrorPass twice;
    field_rules::checkEntries(form, twice);
    if (once.errors() != twice.errors())
        std::abort();
    return 0;
}
