#include "editor/completion_view.h"

#include "editor/field_line_edit.h"
#include "platform/plain_text.h"

#include <QAccessible>
#include <QKeyEvent>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace quillon {

namespace {

constexpr int mostRows = 8;
constexpr int longestShown = 200;

} // namespace

CompletionView::CompletionView(const Editor &editor, QWidget *page) : QListWidget(page), m_others(editor)
{
    setObjectName(u"completionView"_s);
    setAccessibleName(tr("What other titles hold here"));
    setFocusPolicy(Qt::NoFocus);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setUniformItemSizes(true);
    hide();
    m_pause.setSingleShot(true);
    m_pause.setInterval(150ms);
    connect(&m_pause, &QTimer::timeout, this, &CompletionView::offer);
    connect(this, &QListWidget::itemClicked, this, &CompletionView::take);
    page->installEventFilter(this);
}

void CompletionView::add(FieldLineEdit *line, FieldId field)
{
    if (!OtherTitles::has(field))
        return;
    m_fields[line] = field;
    line->installEventFilter(this);
    connect(line, &QLineEdit::textEdited, this, [this](const QString &text) {
        hide();
        if (text.isEmpty())
            m_pause.stop();
        else
            m_pause.start();
    });
}

bool CompletionView::eventFilter(QObject *watched, QEvent *event)
{
    auto *line = m_fields.contains(watched) ? qobject_cast<FieldLineEdit *>(watched) : nullptr;
    switch (event->type()) {
    case QEvent::FocusIn:
        if (line) {
            m_line = line;
            m_others.read();
        }
        return false;
    case QEvent::KeyPress:
        return line && press(*static_cast<QKeyEvent *>(event));
    case QEvent::FocusOut:
    case QEvent::Move:
    case QEvent::Resize:
        m_pause.stop();
        hide();
        return false;
    default:
        return false;
    }
}

bool CompletionView::press(const QKeyEvent &event)
{
    if (event.key() == Qt::Key_Down && event.modifiers() == Qt::AltModifier) {
        offer();
        return walk(1);
    }
    if (!isVisible() || (event.modifiers() & ~Qt::KeypadModifier) != 0)
        return false;
    switch (event.key()) {
    case Qt::Key_Down:
        return walk(1);
    case Qt::Key_Up:
        return walk(-1);
    case Qt::Key_Return:
    case Qt::Key_Enter:
        return currentRow() >= 0 && take();
    case Qt::Key_Escape:
        hide();
        return true;
    default:
        return false;
    }
}

/// Above the first value none is chosen.
bool CompletionView::walk(int step)
{
    if (isVisible())
        setCurrentRow(qBound(-1, currentRow() + step, count() - 1));
    tellChosen();
    return true;
}

bool CompletionView::take()
{
    m_line->replaceText(currentItem()->data(Qt::UserRole).toString());
    m_pause.stop();
    hide();
    return true;
}

void CompletionView::offer()
{
    hide();
    if (!m_line || !m_line->hasFocus() || m_line->isReadOnly())
        return;
    const QStringList values = m_others.matching(m_fields.value(m_line), m_line->text(), mostRows);
    if (values.isEmpty())
        return;
    clear();
    for (const QString &value : values) {
        auto *item = new QListWidgetItem(plainLine(value, longestShown), this);
        item->setData(Qt::UserRole, value);
    }
    setCurrentRow(-1);
    place(int(values.size()));
    show();
    raise();
}

/// Below the field, or above it where there is no room.
void CompletionView::place(int rows)
{
    const QWidget *page = parentWidget();
    const int height = rows * sizeHintForRow(0) + 2 * frameWidth();
    const QPoint below = m_line->mapTo(page, QPoint(0, m_line->height()));
    const QPoint above = m_line->mapTo(page, QPoint(0, -height));
    const bool fits = below.y() + height <= page->height() || above.y() < 0;
    const int widest = page->width() - below.x();
    const int wanted = qMax(m_line->width(), sizeHintForColumn(0) + 2 * frameWidth());
    setGeometry(QRect(fits ? below : above, QSize(qMin(wanted, widest), height)));
    for (QWidget *around = m_line->parentWidget(); around != page; around = around->parentWidget())
        around->installEventFilter(this); // It goes when the page is scrolled.
}

/// A list without the focus does not tell by itself.
void CompletionView::tellChosen()
{
    if (!isVisible() || currentRow() < 0)
        return;
    QAccessibleEvent event(this, QAccessible::Focus);
    event.setChild(currentRow());
    QAccessible::updateAccessibility(&event);
}

} // namespace quillon
