#include "platform/xml_source.h"

namespace quillon {

/// The first element named @p tag that is closed, else the first one that is not; -1 without one.
qsizetype XmlSource::firstElement(QByteArrayView tag) const
{
    qsizetype unclosed = -1;
    for (qsizetype at = 0; at < m_tokens.size(); ++at) {
        const XmlToken &token = m_tokens[at];
        if (token.name != tag || !token.beginsElement())
            continue;
        if (!token.unclosed)
            return at;
        if (unclosed < 0)
            unclosed = at;
    }
    return unclosed;
}

/// The end tag of the closed element that begins at @p first.
qsizetype XmlSource::endOfClosed(qsizetype first) const
{
    int depth = 0;
    qsizetype at = first;
    for (; at < m_tokens.size(); ++at) {
        const XmlToken &token = m_tokens[at];
        if (token.name != m_tokens[first].name)
            continue;
        if (token.kind == XmlToken::Start && !token.unclosed)
            ++depth;
        else if (token.kind == XmlToken::End)
            --depth;
        if (depth == 0)
            break;
    }
    return at;
}

/// The start tag that its author took for the end tag of the element at @p first, else the text after it.
qsizetype XmlSource::endOfUnclosed(qsizetype first) const
{
    int depth = 0;
    for (qsizetype at = first + 1; at < m_tokens.size() && depth >= 0; ++at) {
        const XmlToken &token = m_tokens[at];
        if (token.kind == XmlToken::Start && token.unclosed && depth == 0 &&
            token.name == m_tokens[first].name)
            return at;
        if (token.kind == XmlToken::Start && !token.unclosed)
            ++depth;
        else if (token.kind == XmlToken::End)
            --depth;
    }
    qsizetype last = first;
    while (last + 1 < m_tokens.size() &&
           (m_tokens[last + 1].kind == XmlToken::Text || m_tokens[last + 1].kind == XmlToken::Verbatim))
        ++last;
    return last;
}

/// The outermost start tag that was never closed, is named as the one at @p first, and is still open there.
qsizetype XmlSource::outermostOpen(qsizetype first) const
{
    qsizetype outermost = first;
    int depth = 0;
    for (qsizetype at = first - 1; at >= 0; --at) {
        const XmlToken &token = m_tokens[at];
        if (token.kind == XmlToken::End)
            ++depth;
        else if (token.kind == XmlToken::Start && !token.unclosed && depth > 0)
            --depth;
        else if (token.kind == XmlToken::Start && token.unclosed && depth == 0 &&
                 token.name == m_tokens[first].name)
            outermost = at;
    }
    return outermost;
}

QByteArrayView XmlSource::text(QByteArrayView tag) const
{
    const qsizetype first = firstElement(tag);
    if (first < 0)
        return {};
    const QByteArrayView start = m_tokens[outermostOpen(first)].source;
    const qsizetype at = start.end() - m_utf8.begin();
    const qsizetype end = m_utf8.indexOf(QByteArray("</" + tag.toByteArray() + '>'), at);
    return start.size() == tag.size() + 2 && end >= 0 ? m_utf8.sliced(at, end - at) : QByteArrayView();
}

std::optional<XmlSource::Place> XmlSource::place(QByteArrayView tag) const
{
    const qsizetype first = firstElement(tag);
    if (first < 0)
        return std::nullopt;
    const XmlToken &token = m_tokens[first];
    const QByteArrayView whole = element(tag);
    const auto offset = [this](const char *at) { return at - m_utf8.begin(); };
    Place place{.begin = offset(whole.begin()),
                .contentBegin = offset(token.source.end()),
                .contentEnd = offset(whole.end()),
                .end = offset(whole.end()),
                .isOneTag = token.kind == XmlToken::Empty};
    const qsizetype last = token.unclosed ? endOfUnclosed(first) : endOfClosed(first);
    if (!place.isOneTag && m_tokens[last].kind != XmlToken::Text && m_tokens[last].kind != XmlToken::Verbatim)
        place.contentEnd = qMax(place.contentBegin, offset(m_tokens[last].source.begin()));
    return place;
}

QByteArrayView XmlSource::element(QByteArrayView tag) const
{
    const qsizetype first = firstElement(tag);
    if (first < 0)
        return {};
    qsizetype last = first;
    if (m_tokens[first].unclosed)
        last = endOfUnclosed(first);
    else if (m_tokens[first].kind == XmlToken::Start)
        last = endOfClosed(first);
    const char *const begin = m_tokens[first].source.begin();
    const char *end = m_tokens[last].source.end();
    while (isXmlBlank(end[-1]))
        --end;
    return {begin, end};
}

} // namespace quillon
