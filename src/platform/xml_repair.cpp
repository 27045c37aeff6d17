#include "platform/tolerant_xml.h"

#include <QList>

#include <algorithm>
#include <array>

namespace quillon {

namespace {

/// A piece of the input: text, or a tag that is complete in itself.
struct Token
{
    enum Kind
    {
        Text,
        Start,
        Empty,
        End,
        Verbatim
    };
    Kind kind = Text;
    QByteArrayView source;
    QByteArrayView name; ///< Of a tag.
    bool unclosed = false;
};

bool isNameStart(char c)
{
    return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || c == '_' || c == ':' || (c & 0x80);
}

bool isNameCharacter(char c)
{
    return isNameStart(c) || (c >= '0' && c <= '9') || c == '-' || c == '.';
}

bool isBlank(char c)
{
    return c == ' ' || c == '\t' || c == '\r' || c == '\n';
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

    QList<Token> tokens()
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
        while (isBlank(peek()))
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
        m_tokens.append({Token::Text, m_input.sliced(m_at, end - m_at), {}, false});
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
            m_tokens.append({Token::Verbatim, m_input.sliced(m_at, end - m_at), {}, false});
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
        Token token{Token::Start, {}, {}, false};
        if (peek() == '/') {
            token.kind = Token::End;
            ++m_scan;
        }
        token.name = takeName();
        if (token.name.isEmpty())
            return false;
        if (token.kind == Token::Start && !skipAttributes())
            return false;
        skipBlanks();
        if (token.kind == Token::Start && peek() == '/') {
            token.kind = Token::Empty;
            ++m_scan;
        }
        if (peek() != '>')
            return false;
        ++m_scan;
        token.source = m_input.sliced(m_at, m_scan - m_at);
        m_at = m_scan;
        if (token.kind == Token::Start)
            openElement(token);
        else if (token.kind == Token::End)
            closeElement(token);
        m_tokens.append(token);
        return true;
    }

    void openElement(const Token &token)
    {
        m_open.append(m_tokens.size());
        ++m_openByName[token.name];
    }

    void closeElement(Token &token)
    {
        if (m_openByName.value(token.name) == 0) {
            token.kind = Token::Text;
            return;
        }
        for (bool found = false; !found;) {
            Token &innermost = m_tokens[m_open.takeLast()];
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
    QList<Token> m_tokens;
    QList<qsizetype> m_open; ///< The start tags that wait for their end, by their place in m_tokens.
    QHash<QByteArrayView, int> m_openByName;
};

void appendEndTag(QByteArray &xml, QByteArrayView name)
{
    xml.append("</").append(name).append('>');
}

/// The first element named @p tag that is closed, else the first one that is not; -1 without one.
qsizetype firstElement(const QList<Token> &tokens, QByteArrayView tag)
{
    qsizetype unclosed = -1;
    for (qsizetype at = 0; at < tokens.size(); ++at) {
        const Token &token = tokens[at];
        if (token.name != tag || (token.kind != Token::Start && token.kind != Token::Empty))
            continue;
        if (!token.unclosed)
            return at;
        if (unclosed < 0)
            unclosed = at;
    }
    return unclosed;
}

/// The end tag of the closed element that begins at @p first.
qsizetype endOfClosed(const QList<Token> &tokens, qsizetype first)
{
    int depth = 0;
    qsizetype at = first;
    for (; at < tokens.size(); ++at) {
        const Token &token = tokens[at];
        if (token.name != tokens[first].name)
            continue;
        if (token.kind == Token::Start && !token.unclosed)
            ++depth;
        else if (token.kind == Token::End)
            --depth;
        if (depth == 0)
            break;
    }
    return at;
}

/// The start tag that its author took for the end tag of the element at @p first, else the text after it.
qsizetype endOfUnclosed(const QList<Token> &tokens, qsizetype first)
{
    int depth = 0;
    for (qsizetype at = first + 1; at < tokens.size() && depth >= 0; ++at) {
        const Token &token = tokens[at];
        if (token.kind == Token::Start && token.unclosed && depth == 0 && token.name == tokens[first].name)
            return at;
        if (token.kind == Token::Start && !token.unclosed)
            ++depth;
        else if (token.kind == Token::End)
            --depth;
    }
    qsizetype last = first;
    while (last + 1 < tokens.size() &&
           (tokens[last + 1].kind == Token::Text || tokens[last + 1].kind == Token::Verbatim))
        ++last;
    return last;
}

/// The outermost start tag that was never closed, is named as the one at @p first, and is still open there.
qsizetype outermostOpen(const QList<Token> &tokens, qsizetype first)
{
    qsizetype outermost = first;
    int depth = 0;
    for (qsizetype at = first - 1; at >= 0; --at) {
        const Token &token = tokens[at];
        if (token.kind == Token::End)
            ++depth;
        else if (token.kind == Token::Start && !token.unclosed && depth > 0)
            --depth;
        else if (token.kind == Token::Start && token.unclosed && depth == 0 &&
                 token.name == tokens[first].name)
            outermost = at;
    }
    return outermost;
}

} // namespace

QByteArrayView firstElementText(QByteArrayView utf8, QByteArrayView tag)
{
    const QList<Token> tokens = Tokenizer(utf8).tokens();
    const qsizetype first = firstElement(tokens, tag);
    if (first < 0)
        return {};
    const QByteArrayView start = tokens[outermostOpen(tokens, first)].source;
    const qsizetype at = start.end() - utf8.begin();
    const qsizetype end = utf8.indexOf(QByteArray("</" + tag.toByteArray() + '>'), at);
    return start.size() == tag.size() + 2 && end >= 0 ? utf8.sliced(at, end - at) : QByteArrayView();
}

QByteArrayView firstElementSource(QByteArrayView utf8, QByteArrayView tag)
{
    const QList<Token> tokens = Tokenizer(utf8).tokens();
    const qsizetype first = firstElement(tokens, tag);
    if (first < 0)
        return {};
    qsizetype last = first;
    if (tokens[first].unclosed)
        last = endOfUnclosed(tokens, first);
    else if (tokens[first].kind == Token::Start)
        last = endOfClosed(tokens, first);
    const char *const begin = tokens[first].source.begin();
    const char *end = tokens[last].source.end();
    while (isBlank(end[-1]))
        --end;
    return {begin, end};
}

QByteArray repairedXml(const QByteArray &utf8)
{
    const QList<Token> tokens = Tokenizer(utf8).tokens();

    QByteArray xml;
    xml.reserve(utf8.size() + utf8.size() / 8);
    QList<const Token *> open;
    for (const Token &token : tokens) {
        switch (token.kind) {
        case Token::Text:
            // The blanks that follow a start tag that was never closed lay the document out.
            if (!open.isEmpty() && open.last()->unclosed &&
                std::all_of(token.source.begin(), token.source.end(), isBlank))
                break;
            xml.append(token.source.startsWith('<') ? "&lt;" : "");
            xml.append(token.source.sliced(token.source.startsWith('<') ? 1 : 0));
            break;
        case Token::Start:
            xml.append('<').append(token.name).append(token.unclosed ? " quillon.unclosed=''" : "");
            xml.append(token.source.sliced(1 + token.name.size()));
            open.append(&token);
            break;
        case Token::End:
            for (; open.last()->name != token.name; open.removeLast())
                appendEndTag(xml, open.last()->name);
            appendEndTag(xml, open.takeLast()->name);
            break;
        case Token::Empty:
        case Token::Verbatim:
            xml.append(token.source);
            break;
        }
    }
    while (!open.isEmpty())
        appendEndTag(xml, open.takeLast()->name);
    return xml;
}

} // namespace quillon
