#pragma once

#include <QFrame>

namespace quillon {

/// Says above a page that it does not answer, and offers to end it.
class HangBar : public QFrame
{
    Q_OBJECT
public:
    explicit HangBar(QWidget *parent = nullptr);

Q_SIGNALS:
    void endRequested();
};

} // namespace quillon
