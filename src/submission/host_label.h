#pragma once

#include <QLabel>

namespace quillon {

/// The server of the page on show, in bold beside its address, which may name anything before it.
class HostLabel : public QLabel
{
    Q_OBJECT
public:
    explicit HostLabel(const QString &name, QWidget *parent = nullptr);

    /// @p host as nobody can mistake it; hidden when that is empty.
    void setHost(const QString &host);
};

} // namespace quillon
