#pragma once

#include "support/accessibility.h"

#include <QAbstractButton>
#include <QAbstractScrollArea>
#include <QCheckBox>
#include <QComboBox>
#include <QGroupBox>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QProgressBar>
#include <QPushButton>
#include <QRadioButton>
#include <QStyleOptionButton>
#include <QTabBar>
#include <QToolButton>

#include <algorithm>

namespace quillon {

namespace cut_text {

inline int widthOf(const QWidget &widget, const QString &text)
{
    return widget.fontMetrics().size(Qt::TextShowMnemonic, text).width();
}

/// Where @p widget lies in what it is shown in, it is seen, or can be scrolled to.
inline bool isInSight(const QWidget &widget)
{
    QRect place = widget.rect();
    for (const QWidget *at = &widget; !at->isWindow(); at = at->parentWidget()) {
        const QWidget *around = at->parentWidget();
        const auto *area = qobject_cast<const QAbstractScrollArea *>(around->parentWidget());
        if (area && area->viewport() == around)
            return true;
        place.translate(at->pos());
        if (!around->rect().contains(place))
            return false;
    }
    return true;
}

/// Whether each word of @p label, which breaks its lines between them, has the room.
inline bool haveWordsRoom(const QLabel &label)
{
    if (Qt::mightBeRichText(label.text()))
        return true;
    const QStringList words = label.text().simplified().split(u' ');
    return std::ranges::all_of(words, [&label](const QString &word) {
        return widthOf(label, word) <= label.contentsRect().width();
    });
}

inline bool fits(const QLabel &label)
{
    if (label.inherits("quillon::ElidedLabel") || label.text().isEmpty()) // The former has a tool tip.
        return true;
    if (label.wordWrap())
        return haveWordsRoom(label) && label.height() >= label.heightForWidth(label.width());
    return label.width() >= label.minimumSizeHint().width() && label.height() >= label.fontMetrics().height();
}

/// Where styles draw the text of @p button.
inline int textWidth(const QAbstractButton &button)
{
    QStyleOptionButton option;
    option.initFrom(&button);
    const auto within = [&](QStyle::SubElement element) {
        return button.style()->subElementRect(element, &option, &button).width();
    };
    return qobject_cast<const QPushButton *>(&button)    ? within(QStyle::SE_PushButtonContents)
           : qobject_cast<const QCheckBox *>(&button)    ? within(QStyle::SE_CheckBoxContents)
           : qobject_cast<const QRadioButton *>(&button) ? within(QStyle::SE_RadioButtonContents)
                                                         : button.width();
}

inline bool fits(const QAbstractButton &button)
{
    const auto *tool = qobject_cast<const QToolButton *>(&button);
    if (button.text().isEmpty() || (tool && tool->toolButtonStyle() == Qt::ToolButtonIconOnly))
        return true;
    const int picture = tool || button.icon().isNull() ? 0 : button.iconSize().width();
    return widthOf(button, button.text()) + picture <= textWidth(button) &&
           button.height() >= button.fontMetrics().height();
}

inline bool fits(const QComboBox &box)
{
    if (!box.toolTip().isEmpty() || (box.lineEdit() && !box.lineEdit()->toolTip().isEmpty()))
        return true; // It says the whole of what does not fit.
    QStyleOptionComboBox option;
    option.initFrom(&box);
    option.editable = box.isEditable();
    const QRect room =
        box.style()->subControlRect(QStyle::CC_ComboBox, &option, QStyle::SC_ComboBoxEditField, &box);
    return widthOf(box, box.currentText()) <= room.width();
}

/// What is typed is scrolled; what a field says while it is empty is not.
inline bool fits(const QLineEdit &line)
{
    static constexpr int margins = 8;
    return !line.text().isEmpty() || widthOf(line, line.placeholderText()) + margins <= line.width();
}

/// The texts of @p tabs that do not fit; those that are scrolled out of sight can be reached.
inline QStringList cutIn(const QTabBar &tabs)
{
    QStringList cut;
    for (int tab = 0; tab < tabs.count(); ++tab) {
        const int picture = tabs.tabIcon(tab).isNull() ? 0 : tabs.iconSize().width();
        if (widthOf(tabs, tabs.tabText(tab)) + picture > tabs.tabRect(tab).width())
            cut.append(tabs.tabText(tab));
    }
    return cut;
}

/// The captions of @p header that do not fit, but for those that have a tool tip.
inline QStringList cutIn(const QHeaderView &header)
{
    QStringList cut;
    const auto *model = header.model();
    for (int section = 0; model && section < header.count(); ++section) {
        const QString text = model->headerData(section, header.orientation()).toString();
        const bool isTold = !model->headerData(section, header.orientation(), Qt::ToolTipRole).isNull();
        const bool isWide = header.orientation() == Qt::Vertical || header.isSectionHidden(section) ||
                            header.sectionSizeHint(section) <= header.sectionSize(section);
        if (!isTold && !isWide)
            cut.append(text);
    }
    return cut;
}

/// The texts of @p widget itself that do not fit.
inline QStringList cutIn(const QWidget &widget)
{
    if (const auto *label = qobject_cast<const QLabel *>(&widget))
        return fits(*label) ? QStringList() : QStringList{label->text()};
    if (const auto *button = qobject_cast<const QAbstractButton *>(&widget))
        return fits(*button) ? QStringList() : QStringList{button->text()};
    if (const auto *box = qobject_cast<const QComboBox *>(&widget))
        return fits(*box) ? QStringList() : QStringList{box->currentText()};
    if (const auto *line = qobject_cast<const QLineEdit *>(&widget))
        return fits(*line) ? QStringList() : QStringList{line->placeholderText()};
    if (const auto *tabs = qobject_cast<const QTabBar *>(&widget))
        return cutIn(*tabs);
    if (const auto *header = qobject_cast<const QHeaderView *>(&widget))
        return cutIn(*header);
    if (const auto *group = qobject_cast<const QGroupBox *>(&widget))
        return group->minimumSizeHint().width() <= group->width() ? QStringList()
                                                                  : QStringList{group->title()};
    if (const auto *bar = qobject_cast<const QProgressBar *>(&widget); bar && bar->isTextVisible())
        return widthOf(*bar, bar->text()) <= bar->width() ? QStringList() : QStringList{bar->text()};
    return {};
}

} // namespace cut_text

/// What cannot be read in @p window as it is shown because there is no room for it, a line each: captions,
/// buttons, tabs, heads of columns, chosen values. What says the whole of it in a tool tip, and what can be
/// scrolled to, is left out.
///
///     EXPECT_EQ(cutTexts(window()), QStringList());
inline QStringList cutTexts(QWidget &window)
{
    QStringList faults;
    for (const QWidget *widget : window.findChildren<QWidget *>()) {
        if (!widget->isVisible() || widget->window() != &window)
            continue;
        for (const QString &text : cut_text::cutIn(*widget))
            faults.append(QStringLiteral("%1 has no room for “%2”").arg(nameForPeople(*widget), text));
        if (widget->focusPolicy() != Qt::NoFocus && !cut_text::isInSight(*widget))
            faults.append(nameForPeople(*widget) + QStringLiteral(" is partly out of sight"));
    }
    return faults;
}

} // namespace quillon
