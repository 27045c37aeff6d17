#pragma once

#include <QLabel>

namespace quillon {

/// Tells what could not be stored, or kept besides, for as long as it is so; otherwise it takes no room.
class FailedWritesLabel : public QLabel
{
    Q_OBJECT
public:
    /// @p line gives what is to be told; empty for nothing.
    FailedWritesLabel(const QString &name, QString (*line)(), QWidget *parent);

private:
    void showFailedWrites();

    QString (*m_line)();
};

} // namespace quillon
