#pragma once

#include <QList>
#include <QObject>
#include <QString>
#include <QStringList>

/// What a form's controls hold, without a screen: rules read and write these, and a view binds each to a
/// widget.
namespace quillon {

/// Black is acceptable, red breaks a rule. Validation knows no other colours.
enum class Colour : quint8
{
    Black,
    Red
};

/// A stretch of red text in UTF-16 units.
struct ColourRun
{
    qsizetype start = 0;
    qsizetype length = 0;
    bool operator==(const ColourRun &) const = default;
};

/// The colours of a text as a value, so that several steps of colouring show as one change.
class TextColours
{
public:
    /// The colours of a text of @p length units, @p redRuns in order and apart.
    explicit TextColours(qsizetype length, QList<ColourRun> redRuns = {})
        : m_length(length), m_redRuns(std::move(redRuns))
    {
    }

    [[nodiscard]] const QList<ColourRun> &redRuns() const { return m_redRuns; }

    /// Colours what lies inside the text; the part of the range outside is ignored.
    void set(qsizetype start, qsizetype length, Colour colour);
    void setAll(Colour colour) { set(0, m_length, colour); }

private:
    qsizetype m_length;
    QList<ColourRun> m_redRuns;
};

/// The text beside a control that names it; several controls may share one.
class Caption : public QObject
{
    Q_OBJECT
public:
    using QObject::QObject;

    [[nodiscard]] Colour colour() const { return m_colour; }
    void setColour(Colour colour);

Q_SIGNALS:
    void changed();

private:
    Colour m_colour = Colour::Black;
};

/// What all controls have: a name, a caption, and a hint (a line that says what is expected).
class Control : public QObject
{
    Q_OBJECT
public:
    /// @p name becomes the object's name; the control begins with a caption of its own.
    explicit Control(const QString &name, QObject *parent = nullptr);

    [[nodiscard]] Caption &caption() const { return *m_caption; }
    /// Lets this control stand under the caption of @p other, which must live as long.
    void shareCaption(const Control &other) { m_caption = other.m_caption; }

    [[nodiscard]] QString hint() const { return m_hint; }
    void setHint(const QString &hint);
    [[nodiscard]] Colour hintColour() const { return m_hintColour; }
    void setHintColour(Colour colour);

Q_SIGNALS:
    /// The value, the hint or a colour is another than before.
    void changed();

protected:
    /// Sets @p member and tells of it, if it is another than before.
    template<typename Value>
    void assign(Value &member, const Value &value)
    {
        if (member == value)
            return;
        member = value;
        Q_EMIT changed();
    }

private:
    Caption *m_caption;
    QString m_hint;
    Colour m_hintColour = Colour::Black;
};

/// A single-line field, a multi-line text or a computed text.
class TextControl : public Control
{
    Q_OBJECT
public:
    enum class Lines : quint8
    {
        One,
        Several
    };

    explicit TextControl(const QString &name, QObject *parent = nullptr, Lines lines = Lines::One)
        : Control(name, parent), m_lines(lines)
    {
    }

    [[nodiscard]] QString text() const { return m_text; }
    /// Another text is all black.
    void setText(const QString &text);

    /// Whether checks colour the text: while the author types in it, and always in one of several lines. The
    /// colours stay when the author leaves it.
    [[nodiscard]] bool isEditing() const { return m_editing || m_lines == Lines::Several; }
    void setEditing(bool editing) { m_editing = editing; }

    /// The red stretches, in order and apart; all else is black.
    [[nodiscard]] const QList<ColourRun> &redRuns() const { return m_redRuns; }
    /// Colours what lies inside the text; the part of the range outside is ignored.
    void setTextColour(qsizetype start, qsizetype length, Colour colour);
    void setWholeTextColour(Colour colour);
    /// The present colours, to be changed and given back.
    [[nodiscard]] TextColours colours() const { return TextColours(m_text.size(), m_redRuns); }
    /// @p colours are those of a text as long as this one.
    void setColours(const TextColours &colours) { assign(m_redRuns, colours.redRuns()); }

private:
    QString m_text;
    QList<ColourRun> m_redRuns;
    Lines m_lines;
    bool m_editing = false;
};

/// A list of which one item is chosen; the first is the empty one and means that nothing is set.
class PopUpControl : public Control
{
    Q_OBJECT
public:
    using Control::Control;

    [[nodiscard]] const QStringList &items() const { return m_items; }
    /// Empties the list and fills it anew; the first item is chosen then.
    void setItems(const QStringList &items);

    /// 0 for the empty item, -1 when nothing is chosen.
    [[nodiscard]] int index() const { return m_index; }
    /// An index that does not exist chooses nothing.
    void setIndex(int index);
    /// Chooses the item of exactly this text, nothing when there is none.
    void setTitle(const QString &title) { setIndex(int(m_items.indexOf(title))); }

    /// The chosen item's text, empty when nothing is chosen.
    [[nodiscard]] QString title() const { return m_items.value(m_index); }
    /// Whether something other than the empty item is chosen.
    [[nodiscard]] bool isSet() const { return m_index > 0; }

private:
    QStringList m_items;
    int m_index = -1;
};

/// A box that is on or off.
class CheckBoxControl : public Control
{
    Q_OBJECT
public:
    using Control::Control;

    [[nodiscard]] bool isOn() const { return m_on; }
    void setOn(bool on) { assign(m_on, on); }

private:
    bool m_on = false;
};

/// A list in which every entry can be ticked.
class CheckListControl : public Control
{
    Q_OBJECT
public:
    using Control::Control;

    [[nodiscard]] const QStringList &entries() const { return m_entries; }
    /// Replaces the list; nothing is ticked then.
    void setEntries(const QStringList &entries);

    /// One "1" (ticked) or "0" for each entry.
    [[nodiscard]] const QStringList &states() const { return m_states; }
    [[nodiscard]] bool isTicked(qsizetype row) const { return m_states.value(row) == u"1"; }
    /// A row that does not exist is ignored.
    void setTicked(qsizetype row, bool ticked);
    /// Ticks "0", unticks anything else.
    void toggle(qsizetype row) { setTicked(row, m_states.value(row) == u"0"); }
    void untickAll();

    /// The ticked entries in the list's order.
    [[nodiscard]] QStringList tickedEntries() const;

private:
    QStringList m_entries;
    QStringList m_states;
};

} // namespace quillon
