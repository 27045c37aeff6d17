#pragma once

#include "platform/desktop.h"
#include "submission/browser.h"

#include <QStringList>

#include <utility>

namespace quillon {

/// A browser that notes what it is asked for.
class FakeBrowser final : public Browser
{
public:
    void setDelegate(BrowserDelegate *newDelegate) override { delegate = newDelegate; }
    void loadUrl(const QString &url) override { loaded.append(url); }
    void loadHtml(const QString &html, const QString &baseUrl) override { pages.append({html, baseUrl}); }
    [[nodiscard]] double estimatedProgress() const override { return progress; }
    [[nodiscard]] QString currentUrl() const override { return url; }
    void paste(const QString &text) override { pasted.append(text); }
    void runFormTask(const QString &, const QVariantList &, FormAnswer) override {}
    void goBack() override {}
    void goForward() override {}
    void reload() override {}
    void stop() override {}
    [[nodiscard]] double zoomFactor() const override { return 1.0; }
    void setZoomFactor(double) override {}

    BrowserDelegate *delegate = nullptr;
    QStringList loaded;
    QStringList pasted;
    QList<std::pair<QString, QString>> pages;
    double progress = 0;
    QString url;
};

/// A desktop that notes what it is asked for.
class FakeDesktop final : public Desktop
{
public:
    void setClipboardText(const QString &text) override { clipboard = text; }
    void openWebAddress(const QUrl &address) override { opened.append(address.toString()); }
    bool openSoftwareCentre() override { return hasOpener && ++centresOpened > 0; }

    QString clipboard;
    QStringList opened;
    bool hasOpener = true; ///< Whether anything can be started to open the software centre.
    int centresOpened = 0;
};

} // namespace quillon
