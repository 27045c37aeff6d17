#include "submission/host_label.h"

#include "widgets/plain_tool_tip.h"

using namespace Qt::StringLiterals;

namespace quillon {

namespace {

constexpr int longestHost = 30; ///< In widths of the letter "x".

} // namespace

HostLabel::HostLabel(const QString &name, QWidget *parent) : QLabel(parent)
{
    setObjectName(name);
    setTextFormat(Qt::PlainText);
    QFont bold = font();
    bold.setBold(true);
    setFont(bold);
    hide();
}

void HostLabel::setHost(const QString &host)
{
    // The end of a server's name says whose it is.
    const int width = longestHost * fontMetrics().horizontalAdvance(u'x');
    setText(fontMetrics().elidedText(host, Qt::ElideLeft, width));
    setAccessibleName(tr("Server of the page: %1").arg(host));
    setPlainToolTip(*this, host);
    setVisible(!host.isEmpty());
}

} // namespace quillon
