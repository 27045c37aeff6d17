#pragma once

#include "platform/result.h"
#include "submission/browser.h"
#include "submission/visitor.h"

#include <QtPlugin>

#include <memory>

class QWidget;

namespace quillon {

class Desktop;

/// What a browser tells the window around it, besides what it reports to its delegate.
class BrowserObserver
{
public:
    virtual ~BrowserObserver() = default;

    /// currentUrl() is another one, also when a script of the page says so, or a load has begun or ended.
    virtual void browserChanged() = 0;
    virtual void browserTitleChanged(const QString &title) = 0;
    /// A load failed, and the page is not one of the program's own.
    virtual void browserLoadFailed(const QString &description) = 0;
    /// A script of the page closes its window.
    virtual void browserCloseRequested() = 0;
    /// Something that the author should know, in a sentence; empty when it no longer holds.
    virtual void browserNotice(const QString &text) = 0;
    /// @p text has been pasted, and stands in the field as far as the page lets that be read.
    virtual void browserPasted(const QString &text) = 0;
};

/// A browser with its widget, and what a window around it asks of it. It begins with an empty page, and goes
/// with its widget.
class WindowBrowser : public Browser
{
public:
    /// The page on the screen. It takes the keyboard focus for the page, and is the caller's.
    [[nodiscard]] virtual QWidget &widget() = 0;

    [[nodiscard]] virtual bool canGoBack() const = 0;
    [[nodiscard]] virtual bool canGoForward() const = 0;
    [[nodiscard]] virtual bool isLoading() const = 0;
    /// The server of the page on show, as nobody can mistake it; empty for an empty page or one of the
    /// program's own without an address.
    [[nodiscard]] virtual QString host() const = 0;

    /// Has paste() paste into the page of @p browser, of the same engine, which is then the one that the
    /// author works in; null for the own page.
    virtual void setPasteTarget(WindowBrowser *browser) = 0;

    /// The author has pressed a key or, with @p isMouse, a mouse button in the page; the page may open one
    /// window for it, soon.
    virtual void authorActed(bool isMouse) = 0;

    /// Begins anew with an empty page; what the old one would still do does not happen.
    virtual void renew() = 0;
    /// Has the page do nothing from the moment that it is hidden until it is shown again.
    virtual void restWhileHidden() = 0;
};

/// A web engine at work. Its browsers share what pages store and the clipboard, and go before it.
class BrowserEngine
{
public:
    virtual ~BrowserEngine() = default;

    /// @p name is the object name of the view inside; @p observer outlives the browser.
    virtual WindowBrowser &newBrowser(const QString &name, BrowserObserver &observer) = 0;

    /// A visitor of its own, without anything that pages have stored; it goes before the engine.
    virtual std::unique_ptr<Visitor> newVisitor() = 0;

    /// Clears all that pages have stored; those on show are loaded anew.
    virtual Result<> clearStorage() = 0;
};

/// The part of the program that is loaded when pages are to be shown: it alone links a web engine.
class BrowserModule
{
public:
    virtual ~BrowserModule() = default;

    /// Pages keep cookies and other data in @p folder; @p desktop, with the clipboard, outlives the engine.
    virtual std::unique_ptr<BrowserEngine> newEngine(const QString &folder, Desktop &desktop) = 0;
};

} // namespace quillon

#define QUILLON_BROWSER_MODULE "quillon.BrowserModule"
Q_DECLARE_INTERFACE(quillon::BrowserModule, QUILLON_BROWSER_MODULE)
