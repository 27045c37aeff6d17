#pragma once

#include <QFrame>

class QLabel;

namespace quillon {

/// Says above a page that it does not answer, and offers to end it.
class HangBar : public QFrame
{
    Q_OBJECT
public:
    explicit HangBar(QWidget *parent = nullptr);

protected:
    void showEvent(QShowEvent *event) override;

Q_SIGNALS:
    void endRequested();

private:
    QLabel *m_text;
};

} // namespace quillon
