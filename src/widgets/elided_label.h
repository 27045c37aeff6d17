#pragma once

#include <QLabel>

namespace quillon {

/// A label of one line of plain text. What does not fit ends in "…", and then the tool tip has all of it.
class ElidedLabel : public QLabel
{
    Q_OBJECT
public:
    explicit ElidedLabel(const QString &name, QWidget *parent = nullptr);

    /// As wide as the whole text.
    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override;

protected:
    bool event(QEvent *event) override;
    void paintEvent(QPaintEvent *event) override;

private:
    [[nodiscard]] QString shownText() const;
};

} // namespace quillon
