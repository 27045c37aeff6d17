#include "cli/bash_line.h"

#include "platform/text_decoding.h"

#include <array>

using namespace Qt::StringLiterals;

namespace quillon::cli {

namespace {

constexpr int hexadecimal = 16;

/// Takes a line apart, byte by byte: what means something to bash is ASCII.
class BashReader
{
public:
    BashReader(QByteArrayView line, QByteArrayView wordBreaks) : m_rest(line), m_wordBreaks(wordBreaks) {}

    BashLine read()
    {
        BashLine line;
        while (!m_rest.isEmpty()) {
            const char next = take();
            if (next == ' ' || next == '\t' || next == '\n') {
                endWord(line);
            } else {
                m_isInWord = true;
                part(next);
            }
        }
        line.open = m_open;
        line.kept = exactText(m_word.first(m_kept));
        line.words.append(exactText(m_word));
        return line;
    }

private:
    void endWord(BashLine &line)
    {
        if (std::exchange(m_isInWord, false))
            line.words.append(exactText(m_word));
        m_word.clear();
        m_kept = 0;
    }

    /// A character outside of quotes, or all that a quote holds.
    void part(char next)
    {
        if (next == '\'') {
            quoted(BashLine::Single);
        } else if (next == '"') {
            quoted(BashLine::Double);
        } else if (next == '$' && m_rest.startsWith('\'')) {
            take();
            quoted(BashLine::Escapes);
        } else {
            m_word += next == '\\' && !m_rest.isEmpty() ? take() : next;
            if (next != '\\' && m_wordBreaks.contains(next))
                m_kept = m_word.size();
        }
    }

    void quoted(BashLine::Quote quote)
    {
        const qsizetype start = m_word.size();
        const char end = quote == BashLine::Double ? '"' : '\'';
        while (!m_rest.isEmpty()) {
            const char next = take();
            if (next == end)
                return;
            m_word += next == '\\' ? escaped(quote) : next;
        }
        m_open = quote;
        m_kept = start;
    }

    /// What a backslash stands for in @p quote together with what follows it. Of the many escapes these are
    /// the ones that bashReplacement() writes.
    char escaped(BashLine::Quote quote)
    {
        if (quote == BashLine::Escapes && m_rest.startsWith('x')) {
            const QByteArrayView digits = m_rest.sliced(1).first(qMin<qsizetype>(2, m_rest.size() - 1));
            m_rest = m_rest.sliced(1 + digits.size());
            return char(digits.toInt(nullptr, hexadecimal));
        }
        const bool isOne = quote != BashLine::Single && !m_rest.isEmpty() &&
                           (quote == BashLine::Escapes || QByteArrayView("\\\"$`").contains(m_rest.front()));
        return isOne ? take() : '\\';
    }

    char take()
    {
        const char next = m_rest.front();
        m_rest = m_rest.sliced(1);
        return next;
    }

    QByteArrayView m_rest;
    QByteArrayView m_wordBreaks;
    QByteArray m_word;
    bool m_isInWord = false;
    BashLine::Quote m_open = BashLine::None;
    qsizetype m_kept = 0;
};

bool isControl(QChar each)
{
    return each.category() == QChar::Other_Control;
}

/// @p each as it stands outside of quotes.
QString bare(QChar each)
{
    if (isControl(each)) {
        QString bytes;
        for (const char byte : QString(each).toUtf8())
            bytes += u"\\x%1"_s.arg(uchar(byte), 2, hexadecimal, QChar(u'0'));
        return u"$'%1'"_s.arg(bytes);
    }
    const bool isPlain = each.unicode() > 0x7f || each.isLetterOrNumber() || u"_-./,+@%:="_s.contains(each);
    return isPlain ? QString(each) : u"\\"_s + each;
}

/// Whether @p each stands for itself in @p quote, also where an author calls up earlier commands.
bool isItself(QChar each, BashLine::Quote quote)
{
    static constexpr std::array<QStringView, 4> special = {u"", u"'", u"\\\"$`!", u"\\'"};
    return !isControl(each) && !special[quote].contains(each);
}

} // namespace

BashLine bashLine(QByteArrayView line, QByteArrayView wordBreaks)
{
    return BashReader(line, wordBreaks).read();
}

QString bashReplacement(const BashLine &line, const QString &word)
{
    static constexpr std::array<QStringView, 4> opening = {u"", u"'", u"\"", u"$'"};
    const QStringView open = opening[line.open];
    const QStringView close = open.last(open.isEmpty() ? 0 : 1);
    QString text;
    for (const QChar each : word.sliced(line.kept.size())) {
        if (line.open != BashLine::None && isItself(each, line.open))
            text += each;
        else
            text += close + bare(each) + open;
    }
    // bash closes the quote, but for one that has just been opened again.
    return text.isEmpty() || isItself(word.back(), line.open) || line.open == BashLine::None ? text
                                                                                             : text + close;
}

} // namespace quillon::cli
