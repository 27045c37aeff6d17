#include "submission/browser_loading.h"

#include "submission/browser_module.h"
#include "submission/engine_environment.h"

#include <QCoreApplication>
#include <QFileInfo>
#include <QLibraryInfo>
#include <QLoggingCategory>
#include <QOpenGLContext>
#include <QPluginLoader>

using namespace Qt::StringLiterals;

QT_BEGIN_NAMESPACE
// Exported by Qt Gui for the web engine's kind of need, in no public header.
Q_GUI_EXPORT void qt_gl_set_global_share_context(QOpenGLContext *context);
QT_END_NAMESPACE

namespace quillon {

namespace {

class BrowserLoadingText
{
    Q_DECLARE_TR_FUNCTIONS(BrowserLoading)
};

const QString enginePackage = u"libqt6webenginewidgets6"_s;

/// Where the engine's package puts its library.
QString engineLibrary()
{
    return QLibraryInfo::path(QLibraryInfo::LibrariesPath) + u"/libQt6WebEngineWidgets.so.6"_s;
}

/// The program of the engine's that each page runs in; without it the engine would end the process.
QString pageProgram()
{
    return QLibraryInfo::path(QLibraryInfo::LibraryExecutablesPath) + u"/QtWebEngineProcess"_s;
}

/// Has the engine, whose libraries are loaded after the application was made, find the context that it shares
/// its pictures in. The attribute that makes one with the application would cost every start its time.
void shareOpenGlContext()
{
    if (QOpenGLContext::globalShareContext())
        return;
    auto *context = new QOpenGLContext;
    context->create(); // Where there is no OpenGL, the engine draws without.
    qt_gl_set_global_share_context(context);
    qAddPostRoutine([] { // After the engine's own, which is added later.
        delete QOpenGLContext::globalShareContext();
        qt_gl_set_global_share_context(nullptr);
    });
}

Error engineIsMissing(const QString &path)
{
    return {Error::Kind::Missing, path,
            BrowserLoadingText::tr(
                "Pages cannot be shown without the web engine: install the package %1 and press Submit "
                "again.")
                .arg(enginePackage)};
}

Error cannotLoad(const QString &path, const QString &reason)
{
    if (!QFileInfo::exists(path))
        return {Error::Kind::Missing, path,
                BrowserLoadingText::tr(
                    "Pages cannot be shown, because a part of Quillon is missing: install the package "
                    "quillon-browser, or all of Quillon again, and press Submit again.")};
    if (reason.contains(u"libQt6WebEngine"))
        return engineIsMissing(path);
    return {Error::Kind::Unreadable, path, BrowserLoadingText::tr("Pages cannot be shown. %1").arg(reason)};
}

} // namespace

QString browserModulePath()
{
    return QCoreApplication::applicationDirPath() + u"/" QUILLON_MODULE_FOLDER "/libquillon_browser.so"_s;
}

bool isBrowserInPlace(const QString &path)
{
    return QFileInfo::exists(path) && QFileInfo::exists(engineLibrary()) &&
           QFileInfo(pageProgram()).isExecutable() && (!sandboxWarning().isEmpty() || canMakeSandbox());
}

Result<BrowserModule *> loadBrowserModule(const QString &path)
{
    // How the engine was built and is drawn, in twenty lines, on every start of it.
    QLoggingCategory::setFilterRules(u"qt.webenginecontext.info=false\nqt.webenginecontext.debug=false"_s);
    shareOpenGlContext();
    QPluginLoader loader(path);
    loader.setLoadHints(QLibrary::PreventUnloadHint);
    if (!loader.load())
        return cannotLoad(path, loader.errorString());
    auto *module = qobject_cast<BrowserModule *>(loader.instance());
    if (!module)
        return cannotLoad(path, loader.errorString());
    if (!QFileInfo(pageProgram()).isExecutable())
        return engineIsMissing(path);
    prepareEngineEnvironment();
    if (sandboxWarning().isEmpty() && !canMakeSandbox())
        return Error{
            Error::Kind::Refused, path,
            BrowserLoadingText::tr(
                "Pages cannot be shown, because this system lets no program make a sandbox for them: user "
                "namespaces are switched off.")};
    return module;
}

} // namespace quillon
