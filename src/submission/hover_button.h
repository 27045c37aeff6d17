#pragma once

#include <QPushButton>

namespace quillon {

/**
 * A push button of the field copy panel: it says under the mouse that it was pressed before.
 *
 * Once on, it stays on. It never takes the keyboard focus, so that a press leaves that in the page.
 */
class HoverButtonControl : public QPushButton
{
    Q_OBJECT
public:
    explicit HoverButtonControl(const QString &title, QWidget *parent = nullptr);

    /// Wide enough for the title as it is under the mouse.
    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override;

protected:
    void enterEvent(QEnterEvent *event) override;
    void leaveEvent(QEvent *event) override;
    void paintEvent(QPaintEvent *event) override;
    void nextCheckState() override { setChecked(true); }

private:
    void setImage(const QString &image);
};

} // namespace quillon
