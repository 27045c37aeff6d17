#include "editor/editor_view.h"

#include "editor/choice_bindings.h"
#include "editor/editor.h"
#include "editor/editor_layout.h"
#include "editor/text_bindings.h"
#include "platform/plain_text.h"
#include "widgets/validation_palette.h"

#include <QBoxLayout>
#include <QGroupBox>
#include <QLabel>
#include <QPainter>
#include <QScopedValueRollback>
#include <QScrollArea>
#include <QScrollBar>
#include <QShowEvent>
#include <QTabBar>
#include <QTabWidget>

using namespace Qt::StringLiterals;

namespace quillon {

namespace {

/// A label that says what the author types, never markup.
QLabel *newPlainLabel(const QString &objectName)
{
    auto *label = new QLabel;
    label->setObjectName(objectName);
    label->setTextFormat(Qt::PlainText);
    return label;
}

/// A red disc with the number of a page's errors.
QIcon errorBadge(int count, const QWidget &widget)
{
    const int height = widget.fontMetrics().height();
    const QString text = QString::number(count);
    const QSize size(qMax(height, widget.fontMetrics().horizontalAdvance(text) + height / 2), height);
    QPixmap pixmap(size * widget.devicePixelRatioF());
    pixmap.setDevicePixelRatio(widget.devicePixelRatioF());
    pixmap.fill(Qt::transparent);
    QPainter painter(&pixmap);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(QColor(0xc6, 0x1a, 0x1a));
    painter.drawRoundedRect(QRect(QPoint(0, 0), size), height / 2.0, height / 2.0);
    painter.setPen(Qt::white);
    painter.setFont(widget.font());
    painter.drawText(QRect(QPoint(0, 0), size), Qt::AlignCenter, text);
    return pixmap;
}

void placeCursorAtEnd(QWidget *widget)
{
    if (auto *line = qobject_cast<QLineEdit *>(widget)) {
        line->end(false);
    } else if (auto *text = qobject_cast<QPlainTextEdit *>(widget)) {
        text->moveCursor(QTextCursor::End);
    }
}

} // namespace

EditorView::EditorView(Editor &editor, QWidget *parent)
    : QWidget(parent), m_editor(editor), m_editorTabs(new QTabWidget)
{
    setObjectName(u"editView"_s);
    m_editorTabs->setObjectName(u"editorTabs"_s);
    m_editorTabs->setDocumentMode(true);
    m_editorTabs->setIconSize({2 * fontMetrics().height(), fontMetrics().height()}); // Room for two digits.
    for (const EditorPage &page : editorPages)
        m_editorTabs->addTab(newPage(page), page.label.toString());
    m_editorTabs->tabBar()->setAccessibleName(u"Pages of the PAD file"_s);
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(m_editorTabs);
    connect(m_editorTabs, &QTabWidget::currentChanged, this, &EditorView::tabPicked);
    connect(&editor, &Editor::checked, this, &EditorView::showErrorCounts);
    connect(&editor, &Editor::checked, this, &EditorView::showErrors);
}

QWidget *EditorView::newPage(const EditorPage &page)
{
    auto *content = new QWidget;
    auto *columns = new QHBoxLayout(content);
    QHash<int, QVBoxLayout *> layouts;
    for (const FieldGroup &group : groupsOnPage(page.label)) {
        QVBoxLayout *&column = layouts[group.column];
        if (!column) {
            column = new QVBoxLayout;
            columns->addLayout(column, 1);
        }
        column->addWidget(newGroup(group));
    }
    for (QVBoxLayout *column : std::as_const(layouts)) {
        if (column->itemAt(0)->widget()->sizePolicy().verticalPolicy() != QSizePolicy::Expanding)
            column->addStretch(1);
    }
    auto *area = new QScrollArea;
    area->setFrameShape(QFrame::NoFrame);
    area->setWidgetResizable(true);
    area->setFocusPolicy(Qt::NoFocus);
    area->setWidget(content);
    return area;
}

QWidget *EditorView::newGroup(const FieldGroup &group)
{
    QWidget *box = group.title.isEmpty() ? new QWidget : new QGroupBox(group.title.toString());
    auto *layout = new QVBoxLayout(box);
    layout->setSpacing(2);
    for (const FieldLine &line : group.fields)
        addLine(layout, line);
    // Groups without a heading are the ones that fill their column: texts and lists.
    if (group.title.isEmpty())
        box->setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Expanding);
    return box;
}

void EditorView::addLine(QBoxLayout *layout, const FieldLine &line)
{
    QWidget *first = newControl(line.field, line.lines);
    if (!line.caption.isEmpty()) {
        QLabel *caption = newCaption(line);
        caption->setBuddy(first);
        layout->addWidget(caption);
    }
    auto *row = new QHBoxLayout;
    row->setSpacing(6);
    row->addWidget(first);
    for (const std::optional<FieldId> &beside : {line.second, line.third}) {
        if (beside)
            row->addWidget(newControl(*beside, 1));
    }
    layout->addLayout(row,
                      line.lines > 1 || padField(line.field).kind == FieldKind::CheckList ? line.lines : 0);
    for (const std::optional<FieldId> &each : {std::optional(line.field), line.second, line.third}) {
        if (each)
            layout->addWidget(newHint(m_editor.form().control(*each)));
    }
    layout->addSpacing(2);
}

QWidget *EditorView::newControl(FieldId field, int lines)
{
    QWidget *widget = nullptr;
    switch (padField(field).kind) {
    case FieldKind::Text:
        widget = new FieldLineEdit(m_editor, field);
        break;
    case FieldKind::MultiLine:
        widget = new FieldTextEdit(m_editor, field, lines);
        break;
    case FieldKind::PopUp:
        widget = new FieldComboBox(m_editor, field);
        break;
    case FieldKind::CheckBox:
        widget = new FieldCheckBox(m_editor, field);
        break;
    case FieldKind::CheckList:
        widget = new FieldCheckList(m_editor, field);
        break;
    case FieldKind::Computed: {
        const TextControl &control = m_editor.form().text(field);
        QLabel *label = newPlainLabel(control.objectName());
        const auto show = [label, &control] { label->setText(control.text()); };
        connect(&control, &Control::changed, label, show);
        show();
        widget = label;
        break;
    }
    }
    m_widgets.insert(field, widget);
    return widget;
}

QLabel *EditorView::newCaption(const FieldLine &line)
{
    const Control &control = m_editor.form().control(line.field);
    QLabel *label = newPlainLabel(control.objectName() + u"Label"_s);
    label->setText(line.caption.toString());
    const auto show = [label, &control] { setValidationColour(*label, control.caption().colour()); };
    connect(&control.caption(), &Caption::changed, label, show);
    show();
    return label;
}

QLabel *EditorView::newHint(const Control &control)
{
    QLabel *label = newPlainLabel(control.objectName() + u"Message"_s);
    QFont small = label->font();
    small.setPointSizeF(small.pointSizeF() * 0.85);
    label->setFont(small);
    label->setWordWrap(true);
    const auto show = [label, &control] {
        // A count is not broken where the line is.
        label->setText(QString(control.hint()).replace(u" / "_s, u"\u00a0/\u00a0"_s));
        label->setVisible(!control.hint().isEmpty());
        setValidationColour(*label, control.hintColour());
    };
    connect(&control, &Control::changed, label, show);
    show();
    return label;
}

void EditorView::focusField(FieldId field)
{
    QWidget *widget = m_widgets.value(field);
    if (!widget->isVisible()) {
        field = m_editor.didSelectTabViewItem(m_editorTabs->tabText(m_editorTabs->currentIndex()));
        widget = m_widgets.value(field);
    }
    widget->setFocus(Qt::OtherFocusReason);
    placeCursorAtEnd(widget);
    if (auto *area = qobject_cast<QScrollArea *>(m_editorTabs->currentWidget()))
        area->ensureWidgetVisible(widget);
}

void EditorView::revealField(FieldId field)
{
    const QScopedValueRollback guard(m_revealing, true);
    const auto page = qsizetype(&pageOf(field) - editorPages.data());
    m_editorTabs->setCurrentIndex(int(page));
    focusField(field);
}

void EditorView::tabPicked(int index)
{
    const QString label = m_editorTabs->tabText(index);
    Q_EMIT tabSelected(label);
    if (!m_revealing)
        focusField(m_editor.didSelectTabViewItem(label));
}

void EditorView::showErrorCounts()
{
    for (size_t page = 0; page < editorPages.size(); ++page) {
        const int count = m_editor.errorCount(editorPages[page]);
        m_editorTabs->setTabIcon(int(page), count == 0 ? QIcon() : errorBadge(count, *this));
        m_editorTabs->setTabToolTip(int(page), count == 0   ? QString()
                                               : count == 1 ? u"1 error on this page"_s
                                                            : u"%1 errors on this page"_s.arg(count));
    }
}

void EditorView::showErrors()
{
    for (auto each = m_widgets.cbegin(); each != m_widgets.cend(); ++each) {
        QWidget *widget = each.value();
        QWidget *reader = widget->focusProxy() ? widget->focusProxy() : widget; // What a screen reader reads.
        const QString message = m_editor.errorMessage(each.key());
        if (reader->accessibleDescription() == message)
            continue;
        reader->setAccessibleDescription(message);
        widget->setToolTip(plainToolTip(message));
    }
}

void EditorView::showEvent(QShowEvent *event)
{
    QWidget::showEvent(event);
    if (event->spontaneous())
        return;
    // Perhaps another title's: nothing of what was looked for in the last one stays.
    for (FieldCheckList *list : findChildren<FieldCheckList *>())
        list->showAll();
    for (int page = 0; page < m_editorTabs->count(); ++page)
        qobject_cast<QScrollArea *>(m_editorTabs->widget(page))->verticalScrollBar()->setValue(0);
}

void EditorView::changeEvent(QEvent *event)
{
    QWidget::changeEvent(event);
    if (event->type() == QEvent::FontChange)
        showErrorCounts();
}

} // namespace quillon
