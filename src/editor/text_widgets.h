#pragma once

#include <QTextFormat>
#include <QWidget>

namespace quillon {

/// Leaves the keys of undo and redo to the window's commands; they come as keys where it has none to offer.
/// True when @p event was one that asks for them.
bool isLeftToWindow(QEvent *event);

/// How the parts of a text that break a rule are shown in @p widget.
QTextCharFormat redFormat(const QWidget &widget);

} // namespace quillon
