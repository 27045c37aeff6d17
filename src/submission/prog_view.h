#pragma once

#include <QProgressBar>

namespace quillon {

/// The load progress bar: draws the process's one state of it. Wherever the state is changed, the view
/// follows. To screen readers it is a progress bar with a value of 0 to 100.
class ProgView : public QProgressBar
{
    Q_OBJECT
public:
    explicit ProgView(QWidget *parent = nullptr);

    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override;

    /// Displays the view anew.
    void updateUrlView() { update(); }

Q_SIGNALS:
    /// The view has other bounds.
    void resized(const QRectF &bounds);

protected:
    void paintEvent(QPaintEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;

private:
    void showState();
};

} // namespace quillon
