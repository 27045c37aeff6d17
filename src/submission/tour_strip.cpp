#include "submission/tour_strip.h"

#include "submission/tour_control.h"
#include "widgets/action_button.h"
#include "widgets/announcement.h"
#include "widgets/command_set.h"

#include <QEvent>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>

using namespace Qt::StringLiterals;

namespace quillon {

TourStrip::TourStrip(TourControl &tour, CommandSet &commands, QWidget *parent)
    : QWidget(parent), m_tour(tour), m_commands(commands), m_line(new QLabel)
{
    setObjectName(u"tourStrip"_s);
    m_line->setObjectName(u"tourLine"_s);
    m_line->setTextFormat(Qt::PlainText);
    m_line->setWordWrap(true);
    auto *row = new QHBoxLayout(this);
    row->setContentsMargins(0, 0, 0, 0);
    row->addWidget(m_line, 1);
    for (const QString &id : {u"tourNext"_s, u"tourSkip"_s, u"tourLater"_s}) {
        QPushButton *button = newActionButton(*commands.action(id), id + u"Button"_s, this);
        button->installEventFilter(this);
        row->addWidget(button);
    }
    connect(&tour, &TourControl::changed, this, &TourStrip::showTour);
    showTour();
}

bool TourStrip::eventFilter(QObject *watched, QEvent *event)
{
    // The second click of a double one would be about the next site.
    return event->type() == QEvent::MouseButtonDblClick || QWidget::eventFilter(watched, event);
}

void TourStrip::showTour()
{
    m_line->setText(m_tour.line());
    setVisible(!m_tour.line().isEmpty());
    announce(*this, m_tour.line());
    m_commands.update();
}

} // namespace quillon
