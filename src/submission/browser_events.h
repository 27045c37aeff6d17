#pragma once

#include "submission/browser_module.h"

#include <QObject>

namespace quillon {

/// What a browser tells the window around it, as signals; see BrowserObserver.
class BrowserEvents final : public QObject, public BrowserObserver
{
    Q_OBJECT
public:
    using QObject::QObject;

    void browserChanged() override { Q_EMIT stateChanged(); }
    void browserTitleChanged(const QString &title) override { Q_EMIT titleChanged(title); }
    void browserLoadFailed(const QString &description) override { Q_EMIT loadFailed(description); }
    void browserCloseRequested() override { Q_EMIT closeRequested(); }
    void browserNotice(const QString &text) override { Q_EMIT notice(text); }
    void browserPasted(const QString &text) override { Q_EMIT pasted(text); }

Q_SIGNALS:
    void stateChanged();
    void titleChanged(const QString &title);
    void loadFailed(const QString &description);
    void closeRequested();
    void notice(const QString &text);
    void pasted(const QString &text);
};

} // namespace quillon
