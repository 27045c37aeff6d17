#pragma once

#include <QWebEngineView>

namespace quillon {

/// The engine's view with what the window around it makes of it: a shorter context menu, tool tips that are
/// no markup, and a name for screen readers.
class WebEngineView : public QWebEngineView
{
    Q_OBJECT
public:
    explicit WebEngineView(QWidget *parent = nullptr);

protected:
    bool event(QEvent *event) override;
    void contextMenuEvent(QContextMenuEvent *event) override;
};

} // namespace quillon
