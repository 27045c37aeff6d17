#pragma once

#include "shell/workbench.h"
#include "support/program_test.h"
#include "support/temporary_home.h"

#include <QAction>
#include <QLineEdit>
#include <QMimeData>
#include <QTableView>
#include <QtGui/QDropEvent>

namespace quillon {

/// The program with its window open.
struct MainProgram : Workbench
{
    MainProgram() { window().show(); }
    QWidget *shownWindow() { return &window(); }
};

/// A test that drives the main window as an author does.
class MainWindowTest : public ProgramTest<MainProgram, TemporaryHome>
{
protected:
    MainWindow &window() { return program().window(); }
    OverviewController &overview() { return program().overview(); }
    QStringList titles() { return overview().softwareTable().swNameArray(); }

    QAction *command(const QString &id) { return window().findChild<QAction *>(id); }

    /// Confirms the name panel with @p name.
    static void typeName(const QString &name)
    {
        type(QStringLiteral("swNamePanelInput"), name);
        QTest::keyClick(visible<QLineEdit>(QStringLiteral("swNamePanelInput")), Qt::Key_Return);
    }
    static void clickTitle(int row)
    {
        auto *table = visible<QTableView>(QStringLiteral("softwareTableView"));
        QTest::mouseClick(table->viewport(), Qt::LeftButton, {},
                          table->visualRect(table->model()->index(row, 0)).center());
    }
    /// Whether the list takes files that are dragged over it; @p data gets their @p paths.
    static bool drag(const QStringList &paths, QMimeData &data)
    {
        QList<QUrl> urls;
        for (const QString &path : paths)
            urls.append(QUrl::fromLocalFile(path));
        data.setUrls(urls);
        auto *view = visible<QWidget>(QStringLiteral("overviewView"));
        QDragEnterEvent enter(view->rect().center(), Qt::CopyAction, &data, Qt::LeftButton, {});
        QApplication::sendEvent(view, &enter);
        return enter.isAccepted();
    }
    static void drop(const QStringList &paths)
    {
        QMimeData data;
        EXPECT_TRUE(drag(paths, data));
        auto *view = visible<QWidget>(QStringLiteral("overviewView"));
        QDropEvent event(view->rect().center(), Qt::CopyAction, &data, Qt::LeftButton, {});
        QApplication::sendEvent(view, &event);
    }
    /// A PAD file of a program @p name, of which an import loses one value.
    QString padFile(const QString &name)
    {
        QString path = home() + u'/' + name + u".xml";
        const QString text =
            QStringLiteral("<XML_DIZ_INFO><MASTER_PAD_VERSION_INFO></MASTER_PAD_VERSION_INFO><Program_Name>%1"
                           "</Program_Name><Program_Type>Freemium</Program_Type></XML_DIZ_INFO>");
        put(path, text.arg(name.toHtmlEscaped()).toUtf8());
        return path;
    }
};

} // namespace quillon
