#pragma once

#include <QBasicTimer>
#include <QWidget>

namespace quillon {

/// A small wheel that turns while something is under way; its place stays when it is hidden.
class ActivityIndicator : public QWidget
{
    Q_OBJECT
public:
    explicit ActivityIndicator(QWidget *parent = nullptr);

    /// How much is done, from 0.0 to 1.0; the tool tip and screen readers say it.
    void setValue(double value);

    [[nodiscard]] QSize sizeHint() const override;

protected:
    void showEvent(QShowEvent *event) override;
    void hideEvent(QHideEvent *event) override;
    void timerEvent(QTimerEvent *event) override;
    void paintEvent(QPaintEvent *event) override;

private:
    QBasicTimer m_timer;
    int m_step = 0;
};

} // namespace quillon
