#include "changes/marked_text_view.h"

#include "editor/text_change.h"

using namespace Qt::StringLiterals;

namespace quillon {

namespace {

/// Line ends as a text widget has them, so that positions in it are those of the text.
QString withPlainLineEnds(QString text)
{
    return text.replace(u"\r\n"_s, u"\n"_s).replace(u'\r', u'\n');
}

QTextCharFormat removedFormat()
{
    QTextCharFormat format;
    format.setFontStrikeOut(true);
    format.setBackground(QColor(200, 0, 0, 60));
    return format;
}

QTextCharFormat insertedFormat()
{
    QTextCharFormat format;
    format.setFontUnderline(true);
    format.setFontWeight(QFont::Bold);
    format.setBackground(QColor(0, 150, 0, 60));
    return format;
}

} // namespace

MarkedTextView::MarkedTextView(const QString &name, Side side, QWidget *parent)
    : WithFocusFrame(parent), m_side(side)
{
    setObjectName(name);
    setAccessibleName(caption().remove(u'&'));
    setReadOnly(true);
    setTabChangesFocus(true);
}

QString MarkedTextView::caption() const
{
    return m_side == Side::Before ? tr("&Before (what went is struck out)")
                                  : tr("&After (what came is underlined)");
}

void MarkedTextView::showChange(const QString &before, const QString &after)
{
    const QString plainBefore = withPlainLineEnds(before);
    const QString plainAfter = withPlainLineEnds(after);
    const TextChange change = TextChange::between(plainBefore, plainAfter);
    const bool isBefore = m_side == Side::Before;
    setCurrentCharFormat({});
    setPlainText(isBefore ? plainBefore : plainAfter);
    QTextCursor cursor(document());
    cursor.setPosition(int(change.start));
    cursor.setPosition(int(change.start + (isBefore ? change.removed : change.inserted.size())),
                       QTextCursor::KeepAnchor);
    cursor.mergeCharFormat(isBefore ? removedFormat() : insertedFormat());
}

} // namespace quillon
