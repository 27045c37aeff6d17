#pragma once

#include <QDesktopServices>
#include <QObject>
#include <QUrl>

namespace quillon {

/// Takes what the program hands to the desktop, whatever its scheme.
class AddressCatcher : public QObject
{
    Q_OBJECT
public:
    static QStringList schemes()
    {
        return {QStringLiteral("file"),   QStringLiteral("smb"),      QStringLiteral("ftp"),
                QStringLiteral("mailto"), QStringLiteral("tel"),      QStringLiteral("http"),
                QStringLiteral("https"),  QStringLiteral("appstream")};
    }
    AddressCatcher()
    {
        for (const QString &scheme : schemes())
            QDesktopServices::setUrlHandler(scheme, this, "take");
    }
    ~AddressCatcher() override
    {
        for (const QString &scheme : schemes())
            QDesktopServices::unsetUrlHandler(scheme);
    }
    Q_SLOT void take(const QUrl &address) { opened.append(address.toString()); }

    QStringList opened;
};

} // namespace quillon
