#include "submission/load_status_row.h"

#include "platform/plain_text.h"
#include "submission/activity_indicator.h"
#include "submission/page_load.h"
#include "submission/prog_view.h"
#include "widgets/announcement.h"
#include "widgets/elided_label.h"

#include <QHBoxLayout>
#include <QLabel>

using namespace Qt::StringLiterals;

namespace quillon {

LoadStatusRow::LoadStatusRow(PageLoad &load, QWidget *parent)
    : QWidget(parent)
    , m_load(load)
    , m_notice(new ElidedLabel(u"notice"_s))
    , m_warning(new QLabel)
    , m_webViewLoadProgress(new ActivityIndicator)
{
    m_warning->setObjectName(u"pageWarning"_s);
    m_warning->setTextFormat(Qt::PlainText);
    m_warning->hide();
    auto *bar = new ProgView;
    bar->setObjectName(u"progressBarView"_s);
    m_webViewLoadProgress->setObjectName(u"webViewLoadProgress"_s);
    m_webViewLoadProgress->hide();

    auto *layout = new QHBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(m_notice, 3);
    layout->addWidget(m_warning);
    layout->addWidget(new QLabel(tr("Load progress:")));
    layout->addWidget(bar, 1);
    layout->addWidget(m_webViewLoadProgress);

    connect(bar, &ProgView::resized, &load, &PageLoad::windowDidResize);
    connect(&load, &PageLoad::ended, this, &LoadStatusRow::sayEnd);
    connect(&load, &PageLoad::loadStateChanged, this, &LoadStatusRow::showLoadState);
}

void LoadStatusRow::showNotice(const QString &text)
{
    m_notice->setText(text);
    announce(*m_notice, text);
}

void LoadStatusRow::sayPasted(const QString &text)
{
    static constexpr qsizetype longest = 60; // UTF-16 units.
    announce(*m_notice, tr("Pasted: %1").arg(visibleLine(text, longest)));
}

void LoadStatusRow::sayEnd(const QString &failure)
{
    announce(*m_notice, failure.isEmpty() ? tr("Loading has ended.")
                                          : tr("The page could not be loaded. %1").arg(failure));
}

void LoadStatusRow::showWarning(const QString &text)
{
    m_warning->setText(text);
    m_warning->setVisible(!text.isEmpty());
}

void LoadStatusRow::showLoadState()
{
    m_webViewLoadProgress->setValue(m_load.webViewLoadProgress());
    m_webViewLoadProgress->setVisible(m_load.continueViewUpdate());
}

} // namespace quillon
