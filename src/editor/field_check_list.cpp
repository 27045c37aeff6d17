#include "editor/field_check_list.h"

#include "editor/check_list_model.h"
#include "editor/editor_layout.h"
#include "widgets/focus_frame.h"

#include <QBoxLayout>
#include <QFocusEvent>
#include <QKeyEvent>
#include <QLineEdit>
#include <QSortFilterProxyModel>

using namespace Qt::StringLiterals;

namespace quillon {

namespace {

/// A list that the keys reach at its first row, unless they have been on another.
class CheckListView final : public WithFocusFrame<QListView>
{
protected:
    void focusInEvent(QFocusEvent *event) override
    {
        if (event->reason() != Qt::MouseFocusReason && !currentIndex().isValid())
            setCurrentIndex(model()->index(0, 0));
        WithFocusFrame::focusInEvent(event);
    }
};

} // namespace

FieldCheckList::FieldCheckList(Editor &editor, FieldId field, QWidget *parent)
    : QWidget(parent), m_filter(new QLineEdit), m_list(new CheckListView)
{
    const QString name = padField(field).control.toString();
    auto *narrowed = new QSortFilterProxyModel(this);
    narrowed->setSourceModel(new CheckListModel(editor, field, this));
    narrowed->setFilterCaseSensitivity(Qt::CaseInsensitive);
    m_list->setObjectName(name);
    m_list->setAccessibleName(accessibleNameOf(field));
    m_list->setModel(narrowed);
    m_list->setUniformItemSizes(true);
    m_list->setMinimumHeight(m_list->fontMetrics().lineSpacing() * 8);
    m_filter->setObjectName(name + u"Filter"_s);
    m_filter->setAccessibleName(tr("Filter %1").arg(accessibleNameOf(field)));
    m_filter->setPlaceholderText(tr("Filter"));
    m_filter->setClearButtonEnabled(true);
    m_filter->installEventFilter(this);
    connect(m_filter, &QLineEdit::textChanged, narrowed, &QSortFilterProxyModel::setFilterFixedString);

    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(m_filter);
    layout->addWidget(m_list, 1);
}

void FieldCheckList::showAll()
{
    m_filter->clear();
    m_list->scrollToTop();
    m_list->setCurrentIndex({});
}

bool FieldCheckList::eventFilter(QObject *watched, QEvent *event)
{
    const bool goesDown =
        event->type() == QEvent::KeyPress && static_cast<QKeyEvent *>(event)->key() == Qt::Key_Down;
    if (watched != m_filter || !goesDown)
        return QWidget::eventFilter(watched, event);
    m_list->setCurrentIndex(m_list->model()->index(0, 0));
    m_list->setFocus(Qt::TabFocusReason);
    return true;
}

} // namespace quillon
