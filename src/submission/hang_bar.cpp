#include "submission/hang_bar.h"

#include "widgets/announcement.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>

using namespace Qt::StringLiterals;

namespace quillon {

HangBar::HangBar(QWidget *parent)
    : QFrame(parent)
    , m_text(new QLabel(tr("This page does not answer, and other pages of its site may not either.")))
{
    setFrameShape(QFrame::StyledPanel);
    m_text->setWordWrap(true);
    auto *end = new QPushButton(tr("&End Page"));
    end->setObjectName(u"endPageButton"_s);
    end->setToolTip(tr("End this page; what was filled in there is lost"));
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
