#include "editor/hint_label.h"

#include "editor/editor.h"
#include "validation/field_rules.h"
#include "widgets/validation_palette.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace quillon {

namespace {

/// The longest hint that @p rule has, counting to ten times the limit; empty for a field without any.
QString longestHint(const FieldRule &rule)
{
    const auto isShorter = [](QStringView one, QStringView other) { return one.size() < other.size(); };
    const QStringView hint =
        std::max({rule.typing.hint, rule.typing.prefixedHint, rule.summary.hint}, isShorter);
    if (hint.isEmpty())
        return {};
    const QString limit(QString::number(qMax(rule.typing.bounds.max, rule.summary.bounds.max)).size(), u'0');
    return hint + u"        0"_s + limit + u"\u00a0/\u00a0"_s + limit;
}

QFont smaller(QFont font)
{
    static constexpr double part = 0.85;
    if (font.pointSizeF() > 0)
        font.setPointSizeF(font.pointSizeF() * part);
    else
        font.setPixelSize(qRound(font.pixelSize() * part));
    return font;
}

} // namespace

HintLabel::HintLabel(Editor &editor, FieldId field, QWidget *parent)
    : QLabel(parent), m_longest(longestHint(field_rules::of(field)))
{
    const Control &control = editor.form().control(field);
    setObjectName(control.objectName() + u"Message"_s);
    setTextFormat(Qt::PlainText);
    setFont(smaller(font()));
    setWordWrap(true);
    setAlignment(Qt::AlignLeft | Qt::AlignTop);
    QSizePolicy policy(QSizePolicy::Preferred, QSizePolicy::Preferred);
    policy.setHeightForWidth(true); // Also while there is no text.
    setSizePolicy(policy);
    const auto show = [this, &control] {
        // A count is not broken where the line is.
        setText(QString(control.hint()).replace(u" / "_s, u"\u00a0/\u00a0"_s));
        setValidationColour(*this, control.hintColour());
    };
    connect(&control, &Control::changed, this, show);
    show();
    setVisible(!m_longest.isEmpty());
}

int HintLabel::heightForWidth(int width) const
{
    const QRect room(0, 0, width, QWIDGETSIZE_MAX);
    const int kept = fontMetrics().boundingRect(room, Qt::TextWordWrap, m_longest).height();
    return qMax(kept, QLabel::heightForWidth(width));
}

QSize HintLabel::sizeHint() const
{
    static constexpr int longestWord = 12;
    return {fontMetrics().averageCharWidth() * longestWord, fontMetrics().height()};
}

} // namespace quillon
