#pragma once

#include <QWidget>

namespace quillon {

/// The load progress bar: draws the process's one state of it. Wherever the state is changed, the view
/// follows.
class ProgView : public QWidget
{
    Q_OBJECT
public:
    explicit ProgView(QWidget *parent = nullptr);

    [[nodiscard]] QSize sizeHint() const override;

    /// Displays the view anew.
    void updateUrlView() { update(); }

Q_SIGNALS:
    /// The view has other bounds.
    void resized(const QRectF &bounds);

protected:
    void paintEvent(QPaintEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;
};

} // namespace quillon
