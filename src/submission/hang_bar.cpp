#include "submission/hang_bar.h"

#include "widgets/announcement.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>

using namespace Qt::StringLiterals;

namespace quillon {

HangBar::HangBar(QWidget *parent)
    : QFrame(parent)
    , m_text(new QLabel(u"This page does not answer, and other pages of its site may not either."_s))
{
    setFrameShape(QFrame::StyledPanel);
    m_text->setWordWrap(true);
    auto *end = new QPushButton(u"&End Page"_s);
    end->setObjectName(u"endPageButton"_s);
    end->setToolTip(u"End this page; what was filled in there is lost"_s);
    connect(end, &QPushButton::clicked, this, &HangBar::endRequested);
    auto *layout = new QHBoxLayout(this);
    layout->addWidget(m_text, 1);
    layout->addWidget(end);
}

void HangBar::showEvent(QShowEvent *event)
{
    QFrame::showEvent(event);
    announce(*this, m_text->text());
}

} // namespace quillon
