#pragma once

#include "support/accessibility.h"

#include <QAbstractItemView>
#include <QAction>
#include <QLabel>

namespace quillon {

/// A name as a stranger may choose it, which must be seen as it stands.
inline const QString markup = QStringLiteral("<b>x<img src=y><a href=file:>");

/// Where in @p window a text that holds markup is taken for it, a line each: in labels, those of sheets among
/// them, and in tool tips. Nor may a label that is still to be filled take any.
inline QStringList markupFaults(const QWidget &window)
{
    QStringList faults;
    const auto takesMarkup = [](const QLabel &label) {
        return label.textFormat() != Qt::PlainText && label.pixmap().isNull() &&
               (label.text().isEmpty() || label.text().contains(markup));
    };
    const auto look = [&faults](const QString &toolTip, const QString &where) {
        if (toolTip.contains(markup))
            faults.append(where + QStringLiteral(" has a tool tip of markup"));
    };
    for (const QWidget *widget : window.findChildren<QWidget *>()) {
        look(widget->toolTip(), nameForPeople(*widget));
        for (const QAction *action : widget->actions())
            look(action->toolTip(), action->text());
        const auto *label = qobject_cast<const QLabel *>(widget);
        if (label && takesMarkup(*label))
            faults.append(nameForPeople(*label) + QStringLiteral(" takes markup: ") + label->text());
        const auto *view = qobject_cast<const QAbstractItemView *>(widget);
        const int cells =
            view && view->model() ? view->model()->rowCount() * view->model()->columnCount() : 0;
        for (int cell = 0; cell < cells; ++cell) {
            const QModelIndex index = view->model()->index(cell / view->model()->columnCount(),
                                                           cell % view->model()->columnCount());
            look(index.data(Qt::ToolTipRole).toString(), nameForPeople(*view));
        }
    }
    return faults;
}

} // namespace quillon
