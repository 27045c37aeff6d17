#include "platform/regex.h"

#include <cstdlib>
#include <cstring>

using namespace quillon;

/// Takes any UTF-16 units for a text and, after the first line break, for a replacement.
extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    QString input(qsizetype(size / sizeof(QChar)), Qt::Uninitialized);
    if (!input.isEmpty())
        std::memcpy(input.data(), data, size_t(input.size()) * sizeof(QChar));
    const QString subject = input.section(u'\n', 0, 0);
    const QString replacement = input.section(u'\n', 1);

    static const Regex patterns[] = {Regex(u"<T>.*</T>"), Regex(u"([0-9]+)|(a)(b)?"), Regex(u"x*"),
                                     Regex(u"")};
    for (const Regex &pattern : patterns) {
        static_cast<void>(pattern.replaceAll(subject, replacement));
        if (pattern.replaceAll(subject, u"${0}") != subject)
            std::abort();
    }
    const auto whole = Regex(Regex::escaped(subject)).firstMatch(subject);
    if (!whole || whole->range().length != subject.size())
        std::abort();
    return 0;
}
