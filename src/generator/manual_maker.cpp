#include "generator/command_reference.h"
#include "generator/field_reference.h"
#include "pad/field_catalogue.h"
#include "platform/settings.h"
#include "shell/workbench.h"
#include "store/process_state.h"
#include "submission/default_sites.h"
#include "submission/late_engine.h"
#include "submission/submit_window.h"

#include <QApplication>
#include <QDir>
#include <QFile>
#include <QMenuBar>
#include <QRegularExpression>
#include <QTemporaryDir>

#include <cstdio>
#include <functional>

using namespace Qt::StringLiterals;
using namespace quillon;

// Makes the manual's pages of their sources when the program is built. A source is what stands in the page's
// body, from its <h1> on; where it says <?quillon NAME?>, the part of that name is filled in. Arguments: the
// sources' folder, the pages', quillon-cli, quillon.

namespace {

constexpr int argumentCount = 5;

struct Part
{
    QString name;
    std::function<Result<QString>()> make;
};

/// The program with no titles, for as long as this lives.
struct EmptyHome
{
    EmptyHome()
    {
        setSettingsHome(folder.path());
        setDataFolder(folder.path());
    }
    /// Settings that are stored only later would make the folder anew.
    ~EmptyHome() { settings().sync(); }
    Q_DISABLE_COPY_MOVE(EmptyHome)

    const QTemporaryDir folder;
};

QString mainMenus()
{
    const EmptyHome home;
    Workbench workbench;
    return command_reference::ofMenus(u"main"_s, *workbench.window().menuBar());
}

QString submissionMenus()
{
    const EmptyHome home;
    MessageBoxSheets alerts;
    QtDesktop desktop;
    TimedCalls delayedCalls;
    LateEngine engine; // None comes: menus need no page.
    SubmitWindow window(engine, alerts, desktop, delayedCalls);
    return command_reference::ofMenus(u"submission"_s, *window.menuBar());
}

Result<QString> filledIn(QString page, const QList<Part> &parts)
{
    for (const Part &part : parts) {
        const QString place = u"<?quillon %1?>"_s.arg(part.name);
        if (!page.contains(place))
            continue;
        Result<QString> made = part.make();
        if (!made)
            return made;
        page.replace(place, *made);
    }
    if (page.contains(u"<?quillon"))
        return Error{.reason = u"a page asks for a part that nobody makes"_s};
    return page;
}

/// The whole page, with the way to the contents above it.
QString framed(const QString &body)
{
    static const QRegularExpression heading(u"<h1>(.*)</h1>"_s);
    return u"<!DOCTYPE html>\n<html lang=\"en\">\n<head>\n<meta charset=\"utf-8\"/>\n<title>%1</title>\n"
           "<link rel=\"stylesheet\" href=\"manual.css\"/>\n</head>\n<body>\n"
           "<p><a href=\"index.html\">Contents</a></p>\n%2</body>\n</html>\n"_s.arg(
               heading.match(body).captured(1), body);
}

Result<> makePage(const QString &source, const QString &target, const QList<Part> &parts)
{
    QFile from(source);
    QFile to(target);
    if (!from.open(QIODevice::ReadOnly) || !to.open(QIODevice::WriteOnly))
        return Error{Error::Kind::NotDone, source, from.errorString() + u", "_s + to.errorString()};
    const Result<QString> page = filledIn(QString::fromUtf8(from.readAll()), parts);
    if (!page)
        return Error{page.error().kind, source, page.error().reason};
    const QByteArray bytes = (source.endsWith(u".html") ? framed(*page) : *page).toUtf8();
    if (to.write(bytes) != bytes.size() || !to.flush())
        return Error{Error::Kind::NotDone, target, to.errorString()};
    return {};
}

} // namespace

int main(int argc, char *argv[])
{
    const QApplication application(argc, argv);
    const QStringList arguments = QApplication::arguments();
    if (arguments.size() != argumentCount)
        return EXIT_FAILURE;
    const QList<Part> parts = {
        {u"fields"_s, [] { return fieldReference(); }},
        {u"findings"_s, [] { return findingReference(); }},
        {u"packs"_s, [] { return packReference(); }},
        {u"field-count"_s, [] { return QString::number(fieldCount); }},
        {u"site-count"_s, [] { return QString::number(defaultSites.size()); }},
        {u"main-menus"_s, [] { return mainMenus(); }},
        {u"submission-menus"_s, [] { return submissionMenus(); }},
        {u"quillon-cli"_s, [&] { return command_reference::ofProgram(arguments[3]); }},
        {u"quillon"_s, [&] { return command_reference::ofProgram(arguments[4]); }},
    };
    QDir().mkpath(arguments[2]);
    for (const QString &name : QDir(arguments[1]).entryList(QDir::Files)) {
        const Result<> made = makePage(arguments[1] + u'/' + name, arguments[2] + u'/' + name, parts);
        if (!made) {
            std::fputs(qPrintable(made.error().path + u": "_s + made.error().reason + u'\n'), stderr);
            return EXIT_FAILURE;
        }
    }
    return EXIT_SUCCESS;
}
