#pragma once

#include <QLabel>

namespace quillon {

/// Tells what could not be stored, for as long as it is so; otherwise it takes no room.
class FailedWritesLabel : public QLabel
{
    Q_OBJECT
public:
    FailedWritesLabel(const QString &name, QWidget *parent);

private:
    void showFailedWrites();
};

} // namespace quillon
