#pragma once

#include <QWidget>

class QLabel;

namespace quillon {

class CommandSet;
class TourControl;

/// Says what is to be brought up to date, with the buttons that lead on; hidden while nothing is.
class TourStrip : public QWidget
{
    Q_OBJECT
public:
    /// @p commands has "tourNext", "tourSkip" and "tourLater"; both must outlive the strip.
    TourStrip(TourControl &tour, CommandSet &commands, QWidget *parent = nullptr);

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void showTour();

    TourControl &m_tour;
    CommandSet &m_commands;
    QLabel *m_line;
};

} // namespace quillon
