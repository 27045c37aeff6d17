#pragma once

#include <QObject>

#include <memory>

namespace quillon {

class Desktop;
class ManualWindow;

/// Opens the manual at the page of what the author works in, by F1 in any window, sheets too. The window is
/// made when it is first asked for, and belongs to no other, so that no sheet bars the way to it.
class ManualOpener : public QObject
{
    Q_OBJECT
public:
    /// @p desktop must outlive it.
    explicit ManualOpener(Desktop &desktop);
    ~ManualOpener() override;

    void open();
    void close();

    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    Desktop &m_desktop;
    std::unique_ptr<ManualWindow> m_window;
};

} // namespace quillon
