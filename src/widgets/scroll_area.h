#pragma once

#include <QScrollArea>

namespace quillon {

/// A content that is as large as the area, and scrolled only where it would be smaller than it can be: on a
/// small screen, say, or with large letters.
class ScrollArea : public QScrollArea
{
    Q_OBJECT
public:
    explicit ScrollArea(QWidget *content);

protected:
    void resizeEvent(QResizeEvent *event) override;
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void fit();
};

} // namespace quillon
