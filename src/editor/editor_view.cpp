#include "editor/editor_view.h"

#include "editor/choice_bindings.h"
#include "editor/completion_view.h"
#include "editor/editor.h"
#include "editor/editor_layout.h"
#include "editor/error_badge.h"
#include "editor/field_check_list.h"
#include "editor/field_line_edit.h"
#include "editor/field_text_edit.h"
#include "editor/field_watch.h"
#include "editor/hint_label.h"
#include "editor/unreadable_file_bar.h"
#include "platform/plain_text.h"
#include "platform/settings.h"
#include "platform/translated_text.h"
#include "widgets/announcement.h"
#include "widgets/validation_palette.h"

#include <QBoxLayout>
#include <QGroupBox>
#include <QLabel>
#include <QScopedValueRollback>
#include <QScrollArea>
#include <QScrollBar>
#include <QShowEvent>
#include <QTabBar>
#include <QTabWidget>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace quillon {

namespace {

const QString pageKey = u"editor/page"_s;

/// A label that says what the author types, never markup.
QLabel *newPlainLabel(const QString &objectName)
{
    auto *label = new QLabel;
    label->setObjectName(objectName);
    label->setTextFormat(Qt::PlainText);
    return label;
}

/// A text that the author does not type. However long it becomes, what stands beside it stays where it is.
QLabel *newComputed(const TextControl &control)
{
    QLabel *label = newPlainLabel(control.objectName());
    label->setFixedWidth(label->fontMetrics().horizontalAdvance(u"0000000000 KB"_s));
    const auto show = [label, &control] { label->setText(control.text()); };
    QObject::connect(&control, &Control::changed, label, show);
    show();
    return label;
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
    : QWidget(parent)
    , m_editor(editor)
    , m_editorTabs(new QTabWidget)
    , m_watch(new FieldWatch(editor, this))
    , m_completion(new CompletionView(editor, this))
{
    setObjectName(u"editView"_s);
    m_editorTabs->setObjectName(u"editorTabs"_s);
    m_editorTabs->setDocumentMode(true);
    m_editorTabs->setIconSize({2 * fontMetrics().height(), fontMetrics().height()}); // Room for two digits.
    for (const EditorPage &page : editorPages) {
        auto *area = new QScrollArea;
        area->setFrameShape(QFrame::NoFrame);
        area->setWidgetResizable(true);
        area->setFocusPolicy(Qt::NoFocus);
        m_editorTabs->addTab(area, translated("EditorPages", page.label));
    }
    m_editorTabs->tabBar()->setAccessibleName(tr("Pages of the PAD file"));
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(new UnreadableFileBar(editor, this));
    layout->addWidget(m_editorTabs, 1);
    connect(m_editorTabs, &QTabWidget::currentChanged, this, &EditorView::tabPicked);
    connect(m_watch, &FieldWatch::entered, this, &EditorView::describe);
    connect(m_watch, &FieldWatch::earlierTextsRequested, this, &EditorView::earlierTextsRequested);
    connect(&editor, &Editor::checked, this, &EditorView::showErrorCounts);
    connect(&editor, &Editor::checked, this, &EditorView::showErrors);
    connect(&editor, &Editor::formLoaded, this, &EditorView::enablePages);
    m_pause.setSingleShot(true);
    m_pause.setInterval(2s);
    connect(&editor, &Editor::checked, &m_pause, qOverload<>(&QTimer::start));
    connect(&m_pause, &QTimer::timeout, this, &EditorView::tellErrors);
    enablePages();
    showErrorCounts();
}

void EditorView::addBar(QWidget *bar)
{
    qobject_cast<QVBoxLayout *>(layout())->insertWidget(1, bar);
}

void EditorView::makeCurrentPage()
{
    auto *area = qobject_cast<QScrollArea *>(m_editorTabs->currentWidget());
    if (area->widget())
        return;
    area->setWidget(newPage(editorPages[size_t(m_editorTabs->currentIndex())]));
    showErrors();
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
            columns->addLayout(column, group.width);
        }
        column->addWidget(newGroup(group));
    }
    for (QVBoxLayout *column : std::as_const(layouts)) {
        if (column->itemAt(0)->widget()->sizePolicy().verticalPolicy() != QSizePolicy::Expanding)
            column->addStretch(1);
    }
    return content;
}

QWidget *EditorView::newGroup(const FieldGroup &group)
{
    QWidget *box =
        group.title.isEmpty() ? new QWidget : new QGroupBox(translated("EditorLayout", group.title));
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
        caption->setBuddy(m_widgets.value(line.field));
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
            layout->addWidget(new HintLabel(m_editor, *each, layout->parentWidget()));
    }
    layout->addSpacing(2);
}

QWidget *EditorView::newControl(FieldId field, int lines)
{
    QWidget *widget = nullptr;
    switch (padField(field).kind) {
    case FieldKind::Text: {
        auto *line = new FieldLineEdit(m_editor, field);
        m_completion->add(line, field);
        widget = line;
        break;
    }
    case FieldKind::MultiLine:
        widget = new FieldTextEdit(m_editor, field, lines);
        break;
    case FieldKind::PopUp:
        widget = new FieldComboBox(m_editor, field);
        break;
    case FieldKind::CheckBox:
        widget = new FieldCheckBox(m_editor, field);
        break;
    case FieldKind::CheckList: {
        auto *list = new FieldCheckList(m_editor, field);
        m_widgets.insert(field, list->list());
        m_watch->add(list->list(), field);
        return list;
    }
    case FieldKind::Computed:
        widget = newComputed(m_editor.form().text(field));
        break;
    }
    m_widgets.insert(field, widget);
    m_watch->add(widget, field);
    return widget;
}

QLabel *EditorView::newCaption(const FieldLine &line)
{
    const Control &control = m_editor.form().control(line.field);
    QLabel *label = newPlainLabel(control.objectName() + u"Label"_s);
    label->setText(translated("EditorLayout", line.caption));
    const auto show = [label, &control] { setCaptionColour(*label, control.caption().colour()); };
    connect(&control.caption(), &Caption::changed, label, show);
    show();
    return label;
}

void EditorView::focusField(FieldId field)
{
    makeCurrentPage();
    QWidget *widget = m_widgets.value(field);
    if (!widget || !widget->isVisible()) {
        field = m_editor.didSelectTabViewItem(editorPages[size_t(m_editorTabs->currentIndex())].label);
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

std::optional<FieldId> EditorView::focusedText() const
{
    QWidget *focused = focusWidget();
    const bool isText = qobject_cast<FieldLineEdit *>(focused) || qobject_cast<FieldTextEdit *>(focused);
    return isText ? std::optional(m_widgets.key(focused)) : std::nullopt;
}

bool EditorView::undoTyping()
{
    auto *line = qobject_cast<FieldLineEdit *>(focusWidget());
    auto *text = qobject_cast<FieldTextEdit *>(focusWidget());
    if (line && line->isUndoAvailable())
        line->undo();
    else if (text && text->document()->isUndoAvailable())
        text->undo();
    else
        return false;
    return true;
}

bool EditorView::redoTyping()
{
    auto *line = qobject_cast<FieldLineEdit *>(focusWidget());
    auto *text = qobject_cast<FieldTextEdit *>(focusWidget());
    if (line && line->isRedoAvailable())
        line->redo();
    else if (text && text->document()->isRedoAvailable())
        text->redo();
    else
        return false;
    return true;
}

void EditorView::tabPicked(int index)
{
    makeCurrentPage();
    const QString label = editorPages[size_t(index)].label.toString();
    settings().setValue(pageKey, label);
    Q_EMIT tabSelected(label);
    if (!m_revealing)
        focusField(m_editor.didSelectTabViewItem(label));
}

void EditorView::enablePages()
{
    for (int page = 0; page < m_editorTabs->count(); ++page)
        m_editorTabs->widget(page)->setEnabled(bool(m_editor.loaded()));
}

void EditorView::showErrorCounts()
{
    for (size_t page = 0; page < editorPages.size(); ++page) {
        const int count = m_editor.errorCount(editorPages[page]);
        m_editorTabs->setTabIcon(int(page), count == 0 ? QIcon() : errorBadge(count, *this));
        m_editorTabs->setTabToolTip(int(page), count == 0   ? QString()
                                               : count == 1 ? tr("1 error on this page")
                                                            : tr("%Ln errors on this page", nullptr, count));
    }
}

void EditorView::showErrors()
{
    for (auto each = m_widgets.cbegin(); each != m_widgets.cend(); ++each) {
        const QString message = m_editor.errorMessage(each.key());
        const QString hint = m_editor.form().control(each.key()).hint().simplified();
        const QString description = message.isEmpty() ? hint : message;
        if (each.value()->accessibleDescription() == description)
            continue;
        if (auto *box = qobject_cast<FieldComboBox *>(each.value()))
            box->describe(description);
        else
            each.value()->setAccessibleDescription(description);
        each.value()->setToolTip(plainToolTip(message));
    }
}

void EditorView::tellErrors()
{
    if (!isVisible() || m_editor.errors() == m_told)
        return;
    m_told = m_editor.errors();
    const size_t count = m_told.size();
    const auto field = focusedText();
    const QString sentence = count == 0   ? tr("No errors in the PAD file.")
                             : count == 1 ? tr("1 error in the PAD file.")
                                          : tr("%L1 errors in the PAD file.").arg(count);
    const QString message = field ? m_editor.errorMessage(*field) : QString();
    announce(*this, message.isEmpty() ? sentence : message + u' ' + sentence);
}

void EditorView::describe(FieldId field)
{
    const QString hint = m_editor.form().control(field).hint().simplified();
    const QString told = m_watch->told(field);
    if (!told.isEmpty())
        m_widgets.value(field)->setAccessibleDescription(
            m_editor.errorMessage(field).isEmpty() ? QString(hint + u'\n' + told).trimmed() : told);
}

void EditorView::restorePage()
{
    const QScopedValueRollback guard(m_revealing, true);
    const QString label = settings().value(pageKey).toString();
    for (int page = 0; page < m_editorTabs->count(); ++page) {
        if (editorPages[size_t(page)].label == label)
            m_editorTabs->setCurrentIndex(page);
    }
}

void EditorView::showEvent(QShowEvent *event)
{
    QWidget::showEvent(event);
    if (event->spontaneous())
        return;
    if (!std::exchange(m_isPageRestored, true))
        restorePage();
    makeCurrentPage();
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
