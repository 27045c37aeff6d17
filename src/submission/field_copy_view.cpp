#include "submission/field_copy_view.h"

#include "platform/plain_text.h"
#include "platform/translated_text.h"
#include "store/add_delete_import_edit.h"
#include "store/storage_status.h"
#include "submission/hover_button.h"

#include <QEvent>
#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>
#include <QScrollArea>
#include <QScrollBar>

using namespace Qt::StringLiterals;

namespace quillon {

namespace {

constexpr int spacing = 3;
constexpr int margin = 4;
constexpr qsizetype longestPreview = 300; ///< UTF-16 units.

/// What a press of the button at @p place would paste from the stored file @p pad, or why nothing.
QString preview(int place, const Result<QByteArray> &pad)
{
    if (!pad && !pad.isError(Error::Kind::Missing))
        return failureLine(pad.error());
    const auto value = pasteText(fieldCopyButtons[size_t(place)], pad.valueOr({}));
    if (!value)
        return FieldCopyView::tr("This field of the PAD file is empty");
    return value->size() > longestPreview ? QString(value->left(longestPreview) + u'…') : *value;
}

} // namespace

FieldCopyView::FieldCopyView(FieldCopyPanel &panel, QWidget *parent)
    : QWidget(parent), m_panel(panel), m_filter(new QLineEdit), m_scrollArea(new QScrollArea)
{
    setObjectName(u"fieldCopyPanel"_s);
    m_scrollArea->setObjectName(u"fieldCopyScrollArea"_s);
    m_scrollArea->setWidgetResizable(true);
    m_scrollArea->setFrameShape(QFrame::NoFrame);
    m_scrollArea->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    m_scrollArea->setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOn);
    m_scrollArea->setFocusPolicy(Qt::NoFocus);
    m_scrollArea->setWidget(newButtons());
    m_scrollArea->viewport()->installEventFilter(this);

    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(newFilterRow());
    layout->addWidget(m_scrollArea, 1);

    connect(&panel, &FieldCopyPanel::changed, this, &FieldCopyView::showStates);
    connect(&panel, &FieldCopyPanel::valuesRead, this, &FieldCopyView::showValues);
    arrange();
    showStates();
    showValues(QByteArray()); // Until a title is taken.
}

QWidget *FieldCopyView::newFilterRow()
{
    auto *row = new QWidget;
    auto *layout = new QHBoxLayout(row);
    layout->setContentsMargins(0, 0, 0, 0);
    auto *caption = new QLabel(tr("&Paste:"));
    caption->setBuddy(m_filter);
    m_filter->setObjectName(u"fieldFilter"_s);
    m_filter->setAccessibleName(tr("Paste"));
    m_filter->setPlaceholderText(tr("Find a field"));
    m_filter->setToolTip(tr("Shows the fields of that name; Return pastes the first of them (Ctrl+J)"));
    m_filter->setClearButtonEnabled(true);
    layout->addWidget(caption);
    layout->addWidget(m_filter, 1);
    connect(m_filter, &QLineEdit::textChanged, this, [this] { arrange(); });
    connect(m_filter, &QLineEdit::returnPressed, this, &FieldCopyView::pressFirst);
    return row;
}

QWidget *FieldCopyView::newButtons()
{
    auto *content = new QWidget;
    auto *layout = new QVBoxLayout(content);
    layout->setContentsMargins(0, 0, margin, 0);
    layout->setSpacing(spacing);
    QStringView page;
    for (int place = 0; place < int(fieldCopyButtons.size()); ++place) {
        if (const QStringView own = fieldCopyButtons[size_t(place)].page();
            own != page || m_groups.isEmpty()) {
            page = own;
            auto *box = new QWidget;
            auto *grid = new QGridLayout(box);
            grid->setContentsMargins(0, 0, 0, margin);
            grid->setSpacing(spacing);
            auto *heading = new QLabel(translated("EditorPages", page));
            QFont bold = heading->font();
            bold.setBold(true);
            heading->setFont(bold);
            grid->addWidget(heading, 0, 0);
            layout->addWidget(box);
            m_groups.append({box, grid, {}});
        }
        m_groups.last().places.append(place);
        addButton(place, m_groups.last().box);
    }
    layout->addStretch(1);
    return content;
}

void FieldCopyView::addButton(int place, QWidget *parent)
{
    const FieldCopyButton &field = fieldCopyButtons[size_t(place)];
    auto *button = new HoverButtonControl(captionOf(field), parent);
    button->setObjectName(field.action + u"Button"_s);
    button->installEventFilter(this);
    connect(button, &HoverButtonControl::clicked, this, [this, place] { m_panel.press(place); });
    m_buttons.append(button);
}

void FieldCopyView::showStates()
{
    for (int place = 0; place < m_buttons.size(); ++place) {
        m_buttons[place]->setEnabled(m_panel.isEnabled(place));
        m_buttons[place]->setChecked(m_panel.isOn(place));
    }
}

void FieldCopyView::showValues(const Result<QByteArray> &pad)
{
    for (int place = 0; place < m_buttons.size(); ++place)
        showValue(place, pad);
}

void FieldCopyView::showValue(int place, const Result<QByteArray> &pad)
{
    HoverButtonControl &button = *m_buttons[place];
    const QString text = preview(place, pad);
    const bool isCut = button.width() < widestButton() && button.width() < button.sizeHint().width();
    button.setToolTip(plainToolTip(isCut ? QString(button.accessibleName() + u'\n' + text) : text));
    button.setAccessibleDescription(text);
}

bool FieldCopyView::eventFilter(QObject *watched, QEvent *event)
{
    if (watched == m_scrollArea->viewport() && event->type() == QEvent::Resize && columns() != m_columns)
        arrange();
    if (event->type() == QEvent::ToolTip) { // The file may have another value by now.
        if (const auto place = m_buttons.indexOf(watched); place >= 0)
            showValue(int(place), AddDeleteImportEdit::returnDataObjectFor(u"data"));
    }
    return QWidget::eventFilter(watched, event);
}

QSize FieldCopyView::sizeHint() const
{
    const int width = widestButton() + margin + m_scrollArea->verticalScrollBar()->sizeHint().width();
    return QWidget::sizeHint().expandedTo({width, 0});
}

int FieldCopyView::widestButton() const
{
    if (m_widestButton == 0) { // Layouts ask again and again, and there are many buttons.
        for (const HoverButtonControl *button : m_buttons)
            m_widestButton = qMax(m_widestButton, button->sizeHint().width());
    }
    return m_widestButton;
}

void FieldCopyView::changeEvent(QEvent *event)
{
    if (event->type() == QEvent::FontChange || event->type() == QEvent::StyleChange)
        m_widestButton = 0;
    QWidget::changeEvent(event);
}

int FieldCopyView::columns() const
{
    return qMax(1, m_scrollArea->viewport()->width() / (widestButton() + spacing));
}

bool FieldCopyView::isFound(int place) const
{
    return captionOf(fieldCopyButtons[size_t(place)])
        .contains(m_filter->text().trimmed(), Qt::CaseInsensitive);
}

void FieldCopyView::arrange()
{
    m_columns = columns();
    for (const Group &group : std::as_const(m_groups)) {
        int shown = 0;
        for (const int place : group.places) {
            HoverButtonControl *button = m_buttons[place];
            group.grid->removeWidget(button);
            button->setVisible(isFound(place));
            if (!isFound(place))
                continue;
            group.grid->addWidget(button, 1 + shown / m_columns, shown % m_columns);
            ++shown;
        }
        group.box->setVisible(shown > 0);
    }
}

void FieldCopyView::focusFilter()
{
    m_filter->setFocus(Qt::ShortcutFocusReason);
    m_filter->selectAll();
}

void FieldCopyView::pressFirst()
{
    if (m_filter->text().trimmed().isEmpty())
        return;
    for (int place = 0; place < m_buttons.size(); ++place) {
        if (!isFound(place) || !m_panel.isEnabled(place))
            continue;
        m_panel.press(place);
        m_filter->clear(); // The next field may be any.
        Q_EMIT pressedByKeyboard();
        return;
    }
}

} // namespace quillon
