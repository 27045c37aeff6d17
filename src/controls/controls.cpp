#include "controls/controls.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace quillon {

void TextColours::set(qsizetype start, qsizetype length, Colour colour)
{
    const qsizetype from = std::clamp<qsizetype>(start, 0, m_length);
    const qsizetype to =
        from + std::clamp<qsizetype>(length + std::min<qsizetype>(start, 0), 0, m_length - from);
    if (from == to)
        return;
    // What is red before and after the range stays; the pieces of one colour that meet become one.
    QList<ColourRun> runs;
    const auto append = [&runs](qsizetype first, qsizetype last) {
        if (first >= last)
            return;
        if (!runs.isEmpty() && runs.last().start + runs.last().length >= first)
            runs.last().length = last - runs.last().start;
        else
            runs.append({first, last - first});
    };
    for (const ColourRun &run : std::as_const(m_redRuns))
        append(run.start, std::min(run.start + run.length, from));
    if (colour == Colour::Red)
        append(from, to);
    for (const ColourRun &run : std::as_const(m_redRuns))
        append(std::max(run.start, to), run.start + run.length);
    m_redRuns = runs;
}

void Caption::setColour(Colour colour)
{
    if (m_colour == colour)
        return;
    m_colour = colour;
    Q_EMIT changed();
}

Control::Control(const QString &name, QObject *parent) : QObject(parent), m_caption(new Caption(this))
{
    setObjectName(name);
}

void Control::setHint(const QString &hint)
{
    assign(m_hint, hint);
}

void Control::setHintColour(Colour colour)
{
    assign(m_hintColour, colour);
}

void TextControl::setText(const QString &text)
{
    if (text == m_text)
        return;
    m_text = text;
    m_redRuns.clear();
    Q_EMIT changed();
}

void TextControl::setTextColour(qsizetype start, qsizetype length, Colour colour)
{
    TextColours coloured = colours();
    coloured.set(start, length, colour);
    setColours(coloured);
}

void TextControl::setWholeTextColour(Colour colour)
{
    setTextColour(0, m_text.size(), colour);
}

void PopUpControl::setItems(const QStringList &items)
{
    m_items = items;
    m_index = items.isEmpty() ? -1 : 0;
    Q_EMIT changed();
}

void PopUpControl::setIndex(int index)
{
    assign(m_index, index >= 0 && index < m_items.size() ? index : -1);
}

void CheckListControl::setEntries(const QStringList &entries)
{
    m_entries = entries;
    m_states = QStringList(entries.size(), u"0"_s);
    Q_EMIT changed();
}

void CheckListControl::setTicked(qsizetype row, bool ticked)
{
    if (row >= 0 && row < m_states.size())
        assign(m_states[row], ticked ? u"1"_s : u"0"_s);
}

void CheckListControl::untickAll()
{
    assign(m_states, QStringList(m_entries.size(), u"0"_s));
}

QStringList CheckListControl::tickedEntries() const
{
    QStringList ticked;
    for (qsizetype row = 0; row < m_states.size(); ++row) {
        if (isTicked(row))
            ticked.append(m_entries[row]);
    }
    return ticked;
}

} // namespace quillon
