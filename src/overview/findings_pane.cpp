#include "overview/findings_pane.h"

#include "editor/editor.h"
#include "findings/advice.h"
#include "findings/chosen_packs.h"
#include "store/process_state.h"
#include "widgets/validation_palette.h"

#include <QEvent>
#include <QResizeEvent>
#include <QtMath>

using namespace Qt::StringLiterals;

namespace quillon {

namespace {

QString paragraph(const QString &text, const QString &style)
{
    return u"<p style=\"margin:0 0 4px 0;%1\">%2</p>"_s.arg(style, text.toHtmlEscaped());
}

} // namespace

FindingsPane::FindingsPane(const Editor &editor, QWidget *parent) : WithFocusFrame(parent), m_editor(editor)
{
    setObjectName(u"findingsPane"_s);
    setAccessibleName(tr("What it means, and advice"));
    setReadOnly(true);
    setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    setTabChangesFocus(true);
    setFrameShape(QFrame::NoFrame);
    viewport()->setAutoFillBackground(false);
    static constexpr int fewestLines = 2; // More would make the window too high for a small screen.
    static constexpr int mostLines = 6;
    static constexpr int frameRoom = 2;
    setMinimumHeight(fewestLines * fontMetrics().lineSpacing());
    setMaximumHeight(mostLines * fontMetrics().lineSpacing() + 2 * int(document()->documentMargin()) +
                     frameRoom);
    hide();
}

QSize FindingsPane::sizeHint() const
{
    const QMargins frame = viewportMargins();
    return {QTextEdit::sizeHint().width(), qCeil(document()->size().height()) + frame.top() + frame.bottom()};
}

void FindingsPane::explain(const QString &key, const StringDictionary &errors)
{
    m_key = key;
    m_errors = errors;
    showFindings();
}

void FindingsPane::showFindings()
{
    QString html;
    if (mwqnSelSW && m_editor.loaded()) {
        const QString muted =
            u"color:"_s + mutedColour(palette(), QPalette::WindowText, QPalette::Window).name();
        const chosen_packs::Chosen chosen = chosen_packs::now();
        for (const Finding &finding :
             findings::all(m_errors, {.form = m_editor.form(), .packs = chosen.packs})) {
            if (finding.severity != Severity::Error)
                html += paragraph(findings::sentence(finding), muted);
            else if (padField(finding.field).control == m_key)
                html += paragraph(findings::sentence(finding), {});
        }
        for (const QString &failure : chosen.failures)
            html += paragraph(failure, muted);
    }
    setHtml(html);
    updateGeometry();
    setVisible(!html.isEmpty());
}

void FindingsPane::resizeEvent(QResizeEvent *event)
{
    QTextEdit::resizeEvent(event);
    if (event->size().width() != event->oldSize().width())
        updateGeometry(); // Its lines break elsewhere.
}

void FindingsPane::changeEvent(QEvent *event)
{
    WithFocusFrame::changeEvent(event);
    if (event->type() == QEvent::PaletteChange && isVisible())
        showFindings();
}

} // namespace quillon
