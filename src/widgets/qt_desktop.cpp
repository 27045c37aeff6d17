#include "widgets/qt_desktop.h"

#include "manual/manual_pages.h"
#include "platform/application_info.h"
#include "platform/web_address.h"

#include <QClipboard>
#include <QDesktopServices>
#include <QGuiApplication>
#include <QUrl>

namespace quillon {

void QtDesktop::setClipboardText(const QString &text)
{
    QGuiApplication::clipboard()->setText(text);
}

void QtDesktop::openWebAddress(const QUrl &address)
{
    if (isWebAddress(address) || manual::isPage(address))
        QDesktopServices::openUrl(address);
}

bool QtDesktop::openSoftwareCentre()
{
    return QDesktopServices::openUrl(QUrl(application_info::softwareCentreAddress));
}

} // namespace quillon
