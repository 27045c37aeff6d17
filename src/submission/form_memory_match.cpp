#include "submission/form_memory_match.h"

#include "platform/translated_text.h"

#include <QCoreApplication>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace quillon::form_matching {

namespace {

class FormMemoryMatchText
{
    Q_DECLARE_TR_FUNCTIONS(FormMemoryMatch)
};

constexpr int memoryScore = 1000;
constexpr int leastAgreement = 2;

/// How much it counts that a sign is the same, by the order of signKinds. A heading and a standard word stand
/// at several fields and tell none from the others.
constexpr std::array<int, signKinds.size()> signWeights = {3, 3, 2, 1, 2, 2, 1};

struct Likeness
{
    int same = 0;
    int other = 0;
    bool hasOwnSign = false; ///< More than what several fields share is the same.
    QStringList why = {};

    [[nodiscard]] bool isEnough() const { return hasOwnSign && same >= leastAgreement; }
    [[nodiscard]] int rank() const { return isEnough() ? same * 10 - other : 0; }
};

Likeness likeness(const FieldSigns &one, const FieldSigns &other)
{
    Likeness result;
    for (size_t kind = 0; kind < signKinds.size(); ++kind) {
        const QString &own = one.*signKinds[kind].text;
        const QString &known = other.*signKinds[kind].text;
        if (own != known) {
            result.other += signWeights[kind];
        } else if (!own.isEmpty()) {
            result.same += signWeights[kind];
            result.hasOwnSign = result.hasOwnSign || signWeights[kind] > 1;
            result.why.append(translated("FormMatching", signKinds[kind].name));
        }
    }
    return result;
}

/// Whether no other of @p ranks reaches that at @p place.
bool isHighest(const QList<int> &ranks, qsizetype place)
{
    return ranks[place] > 0 &&
           std::ranges::count_if(ranks, [&](int rank) { return rank >= ranks[place]; }) == 1;
}

} // namespace

QList<MemoryMatch> matchedWith(const QList<PageField> &fields, const QList<Remembered> &remembered)
{
    QList<QList<int>> ofFields(fields.size()), ofMemories(remembered.size());
    for (qsizetype field = 0; field < fields.size(); ++field) {
        for (qsizetype memory = 0; memory < remembered.size(); ++memory) {
            const int rank = likeness(fields[field].signs, remembered[memory].signs).rank();
            ofFields[field].append(rank);
            ofMemories[memory].append(rank);
        }
    }
    QList<MemoryMatch> matches(fields.size());
    for (qsizetype field = 0; field < fields.size(); ++field) {
        const auto best = std::ranges::max_element(ofFields[field]);
        if (best == ofFields[field].end() || *best <= 0)
            continue;
        const qsizetype memory = best - ofFields[field].begin();
        if (!isHighest(ofFields[field], memory) || !isHighest(ofMemories[memory], field))
            continue;
        const Likeness like = likeness(fields[field].signs, remembered[memory].signs);
        matches[field] = {
            .memory = memory,
            .score = memoryScore + *best,
            .why = FormMemoryMatchText::tr("confirmed here before; the same: %1").arg(like.why.join(u", "_s)),
            .isSure = like.same * 2 >= like.other};
    }
    return matches;
}

} // namespace quillon::form_matching
