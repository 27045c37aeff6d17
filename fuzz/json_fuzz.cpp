#include "findings/rule_pack.h"
#include "shell/start_request.h"

#include <cstdlib>

using namespace quillon;

/// Takes any bytes for a rule pack, whose rules are kept by anything, and for what another start asks for,
/// which is the same when it is handed on.
extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    const QByteArray bytes(reinterpret_cast<const char *>(data), qsizetype(size));
    if (const auto pack = rule_packs::parsed(bytes, {})) {
        for (const PackRule &rule : pack->rules) {
            if (rule.fields.isEmpty() || !rule.id.startsWith(pack->id + u'/') || !rule.passes({}))
                std::abort();
            (void)rule.passes(rule.explanation);
        }
    }
    if (const auto request = StartRequest::read(bytes)) {
        const auto again = StartRequest::read(request->message());
        // What was at the bound may be longer in its one spelling.
        if (again && (again->files != request->files || again->asksForTitle != request->asksForTitle))
            std::abort();
    }
    return 0;
}
