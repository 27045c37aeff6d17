#include "changes/text_cutting.h"

#include <QSet>
#include <QStringList>

#include <algorithm>
#include <optional>

namespace quillon::text_cutting {

namespace {

constexpr QStringView sentenceEnds = u".!?…";
constexpr QStringView wideSentenceEnds = u"。！？"; // No blank follows these.

bool isBlankAt(QStringView text, qsizetype place)
{
    return place >= text.size() || text[place].isSpace();
}

/// Whether a sentence ends just before @p place, and not an abbreviation.
bool endsSentence(QStringView text, qsizetype place)
{
    static constexpr qsizetype shortWord = 3;
    if (wideSentenceEnds.contains(text[place - 1]))
        return true;
    if (!sentenceEnds.contains(text[place - 1]) || !isBlankAt(text, place))
        return false;
    const QStringView next = text.sliced(place).trimmed();
    const QStringView word = text.first(place - 1).mid(qMax<qsizetype>(place - 1 - shortWord, 0));
    const bool isWord =
        std::all_of(word.begin(), word.end(), [](QChar sign) { return sign.isLetterOrNumber(); });
    return isWord && (next.isEmpty() || !next.front().isLower());
}

/// What may not stand at the end of a text that was cut between two words.
bool isLoose(QChar last)
{
    static constexpr QStringView loose = u",;:-–—/&+([{\"'„“‚‘«";
    return last.isSpace() || loose.contains(last);
}

/// Where the character reference begins that ends just before @p place, as in "R &amp;"; none where there is
/// none. Half of one would be shown as it stands.
std::optional<qsizetype> startOfReference(QStringView text, qsizetype place)
{
    const qsizetype start = text.first(place).lastIndexOf(u'&');
    if (start < 0 || text[place - 1] != u';')
        return std::nullopt;
    const QStringView name = text.sliced(start + 1, place - start - 2);
    const bool isName = std::all_of(name.begin(), name.end(),
                                    [](QChar sign) { return sign == u'#' || sign.isLetterOrNumber(); });
    return isName ? std::optional(start) : std::nullopt;
}

} // namespace

QString cut(const QString &text, int most)
{
    const QStringView kept = QStringView(text).trimmed();
    if (kept.size() <= most)
        return kept.toString();
    for (qsizetype place = most; place * 2 >= most && place > 0; --place) {
        if (endsSentence(kept, place))
            return kept.first(place).toString();
    }
    qsizetype place = most;
    while (place > 0 && !isBlankAt(kept, place))
        --place;
    while (place > 0 && isLoose(kept[place - 1]))
        place = startOfReference(kept, place).value_or(place - 1);
    return kept.first(place).toString();
}

QString keywords(const QString &text, int most)
{
    QStringList kept;
    QSet<QString> known;
    qsizetype length = 0;
    for (const QString &keyword : text.split(u',')) {
        const QString plain = keyword.simplified().toCaseFolded();
        if (known.contains(plain) || length + keyword.size() > most)
            continue;
        known.insert(plain);
        kept.append(keyword);
        length += keyword.size() + 1;
    }
    return kept.join(u',');
}

} // namespace quillon::text_cutting
