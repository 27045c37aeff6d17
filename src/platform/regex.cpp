#include "platform/regex.h"

#include <QLoggingCategory>

#include <atomic>

#define PCRE2_CODE_UNIT_WIDTH 16
#include <pcre2.h>

using namespace Qt::StringLiterals;

namespace quillon {

namespace {

Q_LOGGING_CATEGORY(log, "quillon.regex")

PCRE2_SPTR16 units(QStringView text)
{
    // PCRE2 takes no null pointer, which an empty view may hold.
    return reinterpret_cast<PCRE2_SPTR16>(text.isEmpty() ? u"" : text.utf16());
}

/// Appends @p replacement to @p result with its group references filled in from @p match.
void appendExpanded(QString &result, QStringView replacement, const Regex::Match &match)
{
    static constexpr QStringView digits = u"0123456789";
    qsizetype at = 0;
    while (at < replacement.size()) {
        const qsizetype dollar = replacement.indexOf(u'$', at);
        if (dollar < 0)
            break;
        result += replacement.sliced(at, dollar - at);
        const bool braced = replacement.sliced(dollar).startsWith(u"${");
        const qsizetype first = dollar + (braced ? 2 : 1);
        qsizetype last = first;
        while (last < replacement.size() && digits.contains(replacement[last]))
            ++last;
        const bool closed = !braced || (last < replacement.size() && replacement[last] == u'}');
        if (last == first || !closed) {
            result += u'$';
            at = dollar + 1;
            continue;
        }
        bool fits = false;
        const int group = replacement.sliced(first, last - first).toInt(&fits);
        if (fits)
            result += match.captured(group);
        at = last + (braced ? 1 : 0);
    }
    result += replacement.sliced(at);
}

} // namespace

/**
 * A compiled pattern. It is interpreted at first, since making machine code of it takes as long as some
 * hundred matches in short texts do. One that is used a lot, or for a long text, gets machine code, which any
 * number of threads may use meanwhile.
 */
class Regex::Program
{
public:
    /// Takes @p code over.
    explicit Program(pcre2_code_16 *code) : m_interpreted(code) {}
    ~Program()
    {
        pcre2_code_free_16(m_interpreted);
        pcre2_code_free_16(m_machine);
    }
    Q_DISABLE_COPY_MOVE(Program)

    /// What to match a subject of @p length UTF-16 units with.
    const pcre2_code_16 *code(qsizetype length)
    {
        if (const pcre2_code_16 *machine = m_machine)
            return machine;
        const qsizetype cost = 1 + length / 16;
        const qsizetype before = m_used.fetch_add(cost);
        if (before >= worthMachineCode || before + cost < worthMachineCode)
            return m_interpreted;
        pcre2_code_16 *machine = pcre2_code_copy_16(m_interpreted);
        // Where no just-in-time compiler is at hand, matching falls back to the interpreter by itself.
        pcre2_jit_compile_16(machine, PCRE2_JIT_COMPLETE);
        m_machine = machine;
        return machine ? machine : m_interpreted;
    }

private:
    static constexpr qsizetype worthMachineCode = 64;

    pcre2_code_16 *m_interpreted;
    std::atomic<pcre2_code_16 *> m_machine = nullptr;
    std::atomic<qsizetype> m_used = 0;
};

QStringView Regex::Match::captured(qsizetype group) const
{
    const Range range = m_groups.value(group);
    return range.start < 0 ? QStringView() : m_subject.sliced(range.start, range.length);
}

Regex::Regex(QStringView pattern)
{
    int error = 0;
    PCRE2_SIZE offset = 0;
    pcre2_code_16 *code = pcre2_compile_16(units(pattern), static_cast<PCRE2_SIZE>(pattern.size()), 0, &error,
                                           &offset, nullptr);
    if (!code) {
        qCWarning(log) << "the pattern" << pattern << "does not compile at" << offset << "error" << error;
        return;
    }
    m_program = std::make_shared<Program>(code);
}

std::optional<Regex::Match> Regex::matchFrom(QStringView subject, qsizetype offset) const
{
    if (!m_program)
        return std::nullopt;
    const pcre2_code_16 *code = m_program->code(subject.size());
    using MatchData = std::unique_ptr<pcre2_match_data_16, decltype(&pcre2_match_data_free_16)>;
    const MatchData data(pcre2_match_data_create_from_pattern_16(code, nullptr), pcre2_match_data_free_16);
    const auto matched = [&](uint32_t options) {
        return pcre2_match_16(code, units(subject), static_cast<PCRE2_SIZE>(subject.size()),
                              static_cast<PCRE2_SIZE>(offset), options, data.get(), nullptr);
    };
    int count = matched(0);
    if (count == PCRE2_ERROR_JIT_STACKLIMIT) // A long text; the interpreter keeps its stack on the heap.
        count = matched(PCRE2_NO_JIT);
    if (count < 0) {
        if (count != PCRE2_ERROR_NOMATCH)
            qCWarning(log) << "a match was given up, error" << count;
        return std::nullopt;
    }
    const PCRE2_SIZE *ends = pcre2_get_ovector_pointer_16(data.get());
    QList<Range> groups(count);
    for (qsizetype group = 0; group < count; ++group) {
        const PCRE2_SIZE start = ends[2 * group];
        if (start != PCRE2_UNSET)
            groups[group] = {qsizetype(start), qsizetype(ends[2 * group + 1] - start)};
    }
    return Match(subject, std::move(groups));
}

QString Regex::replaceAll(const QString &subject, QStringView replacement) const
{
    QString result;
    qsizetype copied = 0;
    qsizetype offset = 0;
    while (offset <= subject.size()) {
        const std::optional<Match> match = matchFrom(subject, offset);
        if (!match)
            break;
        const Range whole = match->range();
        result += QStringView(subject).sliced(copied, whole.start - copied);
        appendExpanded(result, replacement, *match);
        copied = whole.start + whole.length;
        offset = copied + (whole.length == 0 ? 1 : 0);
    }
    return result += QStringView(subject).sliced(copied);
}

QString Regex::escaped(QStringView text)
{
    static constexpr QStringView special = uR"(\^$.[]|()?*+{}-#)";
    QString pattern;
    for (const QChar unit : text) {
        if (unit.isNull()) {
            pattern += u"\\x00"_s;
            continue;
        }
        if (special.contains(unit))
            pattern += u'\\';
        pattern += unit;
    }
    return pattern;
}

} // namespace quillon
