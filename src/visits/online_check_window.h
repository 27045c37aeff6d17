#pragma once

#include <QDialog>

#include <memory>

class QLabel;
class QPushButton;

namespace quillon {

class OnlineCheck;

/// What an online check visits and finds, with buttons that begin it and break it off. Nothing is visited
/// before the author says so, and nothing any more when the window is closed.
class OnlineCheckWindow : public QDialog
{
    Q_OBJECT
public:
    /// @p title and @p caption are for the author; the caption has the mnemonic of the table.
    OnlineCheckWindow(std::unique_ptr<OnlineCheck> check, const QString &title, const QString &caption,
                      QWidget *parent);
    ~OnlineCheckWindow() override;

private:
    QLayout *newBottomRow();
    void showProgress();

    std::unique_ptr<OnlineCheck> m_check;
    QLabel *m_progress;
    QPushButton *m_start;
    QPushButton *m_cancel;
};

} // namespace quillon
