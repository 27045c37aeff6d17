#include "submission/hang_bar.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>

using namespace Qt::StringLiterals;

namespace quillon {

HangBar::HangBar(QWidget *parent) : QFrame(parent)
{
    setFrameShape(QFrame::StyledPanel);
    auto *text = new QLabel(u"This page does not answer, and other pages of its site may not either."_s);
    text->setWordWrap(true);
    auto *end = new QPushButton(u"&End Page"_s);
    end->setObjectName(u"endPageButton"_s);
    end->setToolTip(u"End this page; what was filled in there is lost"_s);
    connect(end, &QPushButton::clicked, this, &HangBar::endRequested);
    auto *layout = new QHBoxLayout(this);
    layout->addWidget(text, 1);
    layout->addWidget(end);
}

} // namespace quillon
