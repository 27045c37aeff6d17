#include "platform/xml_tokens.h"

#include <QHash>

#include <array>

namespace quillon {

namespace {

bool isNameStart(char c)
{
    return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || c == '_' || c == ':' || (c & 0x80);
}

bool isNameCharacter(char c)
{
    return isNameStart(c) || (c >= '0' && c <= '9') || c == '-' || c == '.';
}

/// Cuts the input into tokens and settles which tags belong together: start tags without an end are marked,
/// end tags without a start become text.
///
/// Each look for the end of a tag stops at the next "<", and no stretch is searched for the end of the same
/// kind of bracketed section twice, so that the whole is linear.
class Tokenizer
{
public:
    explicit Tokenizer(QByteArrayView input) : m_input(input) {}

    QList<XmlToken> tokens()
    {
        while (m_at < m_input.size()) {
            if (m_input[m_at] != '<' || !takeMarkup())
                takeText();
        }
        for (const qsizetype at : std::as_const(m_open))
            m_tokens[at].unclosed = true;
        return std::move(m_tokens);
    }

private:
    /// Sections that are kept as they stand, or dropped, but never looked into.
    struct Section
    {
        QByteArrayView open;
        QByteArrayView close;
        QByteArrayView barrier; ///< What a section that was ever closed does not hold.
        bool kept;
    };
    static constexpr std::array<Section, 4> sections{{
        {"<!--", "-->", "<!--", false},
        {"<![CDATA[", "]]>", "<![CDATA[", true},
        {"<?", "?>", "<?", false},
        {"<!DOCTYPE", ">", "<", false},
    }};

    [[nodiscard]] char peek() const { return m_scan < m_input.size() ? m_input[m_scan] : '\0'; }
    void skipBlanks()
    {
        while (isXmlBlank(peek()))
            ++m_scan;
    }
    QByteArrayView takeName()
    {
        const qsizetype start = m_scan;
        if (isNameStart(peek())) {
            while (isNameCharacter(peek()))
                ++m_scan;
        }
        return m_input.sliced(start, m_scan - start);
    }

    void takeText()
    {
        qsizetype end = m_input.indexOf('<', m_at + 1);
        if (end < 0)
            end = m_input.size();
        m_tokens.append({.kind = XmlToken::Text, .source = m_input.sliced(m_at, end - m_at)});
        m_at = end;
    }

    bool takeMarkup()
    {
        for (size_t kind = 0; kind < sections.size(); ++kind) {
            if (m_input.sliced(m_at).startsWith(sections[kind].open))
                return takeSection(kind);
        }
        return takeTag();
    }

    /// A section that holds its barrier, or the end of an element that is open, was itself never closed: the
    /// end that was found belongs to something else.
    bool takeSection(size_t kind)
    {
        const Section &section = sections[kind];
        const qsizetype start = m_at + section.open.size();
        qsizetype &close = m_nextClose[kind];
        if (close < start) {
            close = m_input.indexOf(section.close, start);
            if (close < 0)
                close = m_input.size();
        }
        if (close == m_input.size())
            return false;
        const QByteArrayView inside = m_input.sliced(start, close - start);
        if (inside.contains(section.barrier) || holdsEndOfOpen(inside))
            return false;
        const qsizetype end = close + section.close.size();
        if (section.kept)
            m_tokens.append({.kind = XmlToken::Verbatim, .source = m_input.sliced(m_at, end - m_at)});
        m_at = end;
        return true;
    }

    [[nodiscard]] bool holdsEndOfOpen(QByteArrayView inside) const
    {
        for (qsizetype at = inside.indexOf("</"); at >= 0; at = inside.indexOf("</", at)) {
            const qsizetype name = at += 2;
            while (at < inside.size() && isNameCharacter(inside[at]))
                ++at;
            if (m_openByName.value(inside.sliced(name, at - name)) > 0)
                return true;
        }
        return false;
    }

    bool takeTag()
    {
        m_scan = m_at + 1;
        XmlToken token{.kind = XmlToken::Start};
        if (peek() == '/') {
            token.kind = XmlToken::End;
            ++m_scan;
        }
        token.name = takeName();
        if (token.name.isEmpty())
            return false;
        if (token.kind == XmlToken::Start && !skipAttributes())
            return false;
        skipBlanks();
        if (token.kind == XmlToken::Start && peek() == '/') {
            token.kind = XmlToken::Empty;
            ++m_scan;
        }
        if (peek() != '>')
            return false;
        ++m_scan;
        token.source = m_input.sliced(m_at, m_scan - m_at);
        m_at = m_scan;
        if (token.kind == XmlToken::Start)
            openElement(token);
        else if (token.kind == XmlToken::End)
            closeElement(token);
        m_tokens.append(token);
        return true;
    }

    void openElement(const XmlToken &token)
    {
        m_open.append(m_tokens.size());
        ++m_openByName[token.name];
    }

    void closeElement(XmlToken &token)
    {
        if (m_openByName.value(token.name) == 0) {
            token.kind = XmlToken::Text;
            return;
        }
        for (bool found = false; !found;) {
            XmlToken &innermost = m_tokens[m_open.takeLast()];
            found = innermost.name == token.name;
            innermost.unclosed = !found;
            --m_openByName[innermost.name];
        }
    }

    /// Passes over ` name="value"`, any number of times; false when something else stands there.
    bool skipAttributes()
    {
        for (;;) {
            const qsizetype before = m_scan;
            skipBlanks();
            if (!isNameStart(peek()))
                return true;
            if (m_scan == before)
                return false;
            takeName();
            skipBlanks();
            if (peek() != '=')
                return false;
            ++m_scan;
            skipBlanks();
            const char quote = peek();
            if (quote != '"' && quote != '\'')
                return false;
            do {
                ++m_scan;
                if (m_scan >= m_input.size() || peek() == '<')
                    return false;
            } while (peek() != quote);
            ++m_scan;
        }
    }

    QByteArrayView m_input;
    qsizetype m_at = 0;   ///< Where the next token begins.
    qsizetype m_scan = 0; ///< How far a tag has been looked at.
    std::array<qsizetype, 4> m_nextClose{-1, -1, -1, -1};
    QList<XmlToken> m_tokens;
    QList<qsizetype> m_open; ///< The start tags that wait for their end, by their place in m_tokens.
    QHash<QByteArrayView, int> m_openByName;
};

} // namespace

QList<XmlToken> xmlTokens(QByteArrayView utf8)
{
    return Tokenizer(utf8).tokens();
}

} // namespace quillon
