#include "overview/findings_pane.h"

#include "editor/editor.h"
#include "findings/advice.h"
#include "findings/chosen_packs.h"
#include "store/process_state.h"

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

/// Between the text's colour and the background's, still easy to read on both.
QString mutedColour(const QPalette &palette)
{
    static constexpr float share = 0.4F;
    const QColor text = palette.color(QPalette::WindowText);
    const QColor back = palette.color(QPalette::Window);
    const auto mixed = [](float one, float other) { return one + (other - one) * share; };
    return u"color:"_s + QColor::fromRgbF(mixed(text.redF(), back.redF()),
                                          mixed(text.greenF(), back.greenF()),
                                          mixed(text.blueF(), back.blueF()))
                             .name();
}

} // namespace

FindingsPane::FindingsPane(const Editor &editor, QWidget *parent) : QTextEdit(parent), m_editor(editor)
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
    setMinimumHeight(fewestLines * fontMetrics().lineSpacing());
    setMaximumHeight(mostLines * fontMetrics().lineSpacing() + 2 * int(document()->documentMargin()));
    hide();
}

QSize FindingsPane::sizeHint() const
{
    return {QTextEdit::sizeHint().width(), qCeil(document()->size().height())};
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
        const QString muted = mutedColour(palette());
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
    QTextEdit::changeEvent(event);
    if (event->type() == QEvent::PaletteChange && isVisible())
        showFindings();
}

} // namespace quillon
