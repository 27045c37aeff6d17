#pragma once

class QAction;
class QPushButton;
class QString;
class QWidget;

namespace quillon {

/// A button that does what @p action does, says it in the same words and can be used when it can. It belongs
/// to @p parent.
QPushButton *newActionButton(QAction &action, const QString &name, QWidget *parent);

} // namespace quillon
