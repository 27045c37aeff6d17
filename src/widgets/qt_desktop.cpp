#include "widgets/qt_desktop.h"

#include <QClipboard>
#include <QDesktopServices>
#include <QGuiApplication>
#include <QUrl>

using namespace Qt::StringLiterals;

namespace quillon {

void QtDesktop::setClipboardText(const QString &text)
{
    QGuiApplication::clipboard()->setText(text);
}

void QtDesktop::openWebAddress(const QUrl &address)
{
    if (QStringList{u"http"_s, u"https"_s, u"ftp"_s}.contains(address.scheme()))
        QDesktopServices::openUrl(address);
}

} // namespace quillon
