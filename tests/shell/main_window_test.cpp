#include "platform/notification_center.h"
#include "platform/notifications.h"
#include "shell/customise_toolbar_dialog.h"
#include "shell/toolbar_layout.h"
#include "shell/workbench.h"
#include "sites/preferences_window.h"
#include "store/storage_status.h"
#include "store/title_folder.h"
#include "support/program_test.h"
#include "support/temporary_home.h"

#include <QHelpEvent>
#include <QLabel>
#include <QLineEdit>
#include <QListView>
#include <QListWidget>
#include <QMenu>
#include <QMessageBox>
#include <QMimeData>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QSplitter>
#include <QTableView>
#include <QToolBar>
#include <QToolTip>
#include <QtGui/QDropEvent>

#include <pwd.h>
#include <unistd.h>

using namespace Qt::StringLiterals;

namespace quillon {
namespace {

struct MainProgram : Workbench
{
    MainProgram() { window().show(); }
    QWidget *shownWindow() { return &window(); }
};

class MainWindowTest : public ProgramTest<MainProgram, TemporaryHome>
{
protected:
    MainWindow &window() { return program().window(); }
    OverviewController &overview() { return program().overview(); }
    QStringList titles() { return overview().softwareTable().swNameArray(); }

    static void typeName(const QString &name)
    {
        type(u"swNamePanelInput"_s, name);
        QTest::keyClick(visible<QLineEdit>(u"swNamePanelInput"_s), Qt::Key_Return);
    }
    static void clickTitle(int row)
    {
        auto *table = visible<QTableView>(u"softwareTableView"_s);
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
        auto *view = visible<QWidget>(u"overviewView"_s);
        QDragEnterEvent enter(view->rect().center(), Qt::CopyAction, &data, Qt::LeftButton, {});
        QApplication::sendEvent(view, &enter);
        return enter.isAccepted();
    }
    static void drop(const QStringList &paths)
    {
        QMimeData data;
        EXPECT_TRUE(drag(paths, data));
        auto *view = visible<QWidget>(u"overviewView"_s);
        QDropEvent event(view->rect().center(), Qt::CopyAction, &data, Qt::LeftButton, {});
        QApplication::sendEvent(view, &event);
    }
    QString padFile(const QString &name)
    {
        QString path = home() + u'/' + name + u".xml";
        put(path, u"<XML_DIZ_INFO><MASTER_PAD_VERSION_INFO></MASTER_PAD_VERSION_INFO><Program_Name>%1</"
                  u"Program_Name>"
                  "<Program_Type>Freemium</Program_Type></XML_DIZ_INFO>"_s.arg(name)
                      .toUtf8());
        return path;
    }
};

TEST_F(MainWindowTest, ATitleFromItsCreationToItsEnd)
{
    EXPECT_TRUE(visible<QWidget>(u"emptyListPage"_s)) << "an empty list says what to do first";
    press(u"newSoftwareButton"_s);
    typeName({});
    EXPECT_EQ(visible<QLabel>(u"swNamePanelMessage"_s)->text(),
              u"You Must Enter a Name for the Software Title"_s);
    typeName(u"First <b>title"_s);
    EXPECT_EQ(titles(), QStringList{u"First <b>title"_s});
    EXPECT_FALSE(visible<QPushButton>(u"deleteButton"_s)->isEnabled());

    clickTitle(0);
    EXPECT_EQ(mwqnSelSW, u"First <b>title"_s);
    window().findChild<QAction *>(u"Edit"_s)->trigger();
    EXPECT_EQ(window().windowTitle(), u"First <b>title"_s) << "the editor says whose PAD file it shows";
    window().findChild<QAction *>(u"Overview"_s)->trigger();
    EXPECT_EQ(window().windowTitle(), u"Quillon"_s);
    overview().deselectAll();
    window().findChild<QAction *>(u"Edit"_s)->trigger();
    answerAlert(u"OK"_s);
    EXPECT_TRUE(window().findChild<QAction *>(u"Overview"_s)->isChecked());
    QTest::keyClick(visible<QTableView>(u"softwareTableView"_s), Qt::Key_Down);
    EXPECT_EQ(mwqnSelSW, u"First <b>title"_s) << "the place is kept, and a key selects it";
    for (const bool enabled : {false, true}) {
        enabled ? overview().fileMenu().enableAll() : overview().fileMenu().disableAll();
        for (const QString &button : {u"importButton"_s, u"renameButton"_s, u"deleteButton"_s})
            EXPECT_EQ(visible<QPushButton>(button)->isEnabled(), enabled) << button.toStdString();
        QMimeData data;
        EXPECT_EQ(drag({home()}, data), enabled);
    }
    press(u"renameButton"_s);
    typeName(u"Second"_s);
    EXPECT_EQ(titles(), QStringList{u"Second"_s});

    clickTitle(0);
    const QString exported = home() + u"/Second 1.0.xml"_s;
    put(exported, "old");
    for (const auto &[answer, replaced] : {std::pair{u"Cancel"_s, false}, std::pair{u"Replace"_s, true}}) {
        press(u"exportButton"_s);
        EXPECT_EQ(visible<QLineEdit>(u"fileNameEdit"_s)->text(), u"Second.xml"_s);
        chooseFile(home() + u"/Second 1.0"_s);
        EXPECT_EQ(answerAlert(answer), u"“Second 1.0.xml” already exists. Do you want to replace it?|"
                                       "What it holds now will be lost."_s);
        EXPECT_EQ(contents(exported) != "old", replaced);
    }
    EXPECT_EQ(answerAlert(u"OK"_s), u"PAD file export successful"_s);
    EXPECT_EQ(contents(exported), contents(inData(u"Second.qndata/data.qnxml"_s)));

    press(u"deleteButton"_s);
    EXPECT_EQ(answerAlert(u"Cancel"_s),
              u"Do you really want to delete Second|Deleting listings cannot be undone."_s);
    EXPECT_EQ(titles().size(), 1);
    EXPECT_TRUE(title_folder::exists(u"Second"_s));
    press(u"deleteButton"_s);
    answerAlert(u"Delete"_s);
    EXPECT_TRUE(titles().isEmpty());
    EXPECT_FALSE(title_folder::exists(u"Second"_s));
}

TEST_F(MainWindowTest, TheKeyThatDeletesATitleBelongsToTheList)
{
    drop({padFile(u"A"_s)});
    answerAlert(u"OK"_s);
    clickTitle(0);
    window().findChild<QAction *>(u"Edit"_s)->trigger();
    // As when the submission window was closed: the commands of the File menu can be used again.
    NotificationCenter::defaultCenter().post(notification::mwqnRS87968tJHKgfds);
    const QList<QListView *> lists = visible<QWidget>(u"editView"_s)->findChildren<QListView *>();
    ASSERT_FALSE(lists.isEmpty());
    for (QListView *list : lists) {
        list->setFocus();
        QTest::keyClick(list, Qt::Key_Delete);
        EXPECT_EQ(openWindow<QMessageBox>(), nullptr) << list->objectName().toStdString();
    }
    window().findChild<QAction *>(u"Overview"_s)->trigger();
    visible<QTableView>(u"softwareTableView"_s)->setFocus();
    QTest::keyClick(visible<QTableView>(u"softwareTableView"_s), Qt::Key_Delete);
    EXPECT_TRUE(answerAlert(u"Cancel"_s).startsWith(u"Do you really want to delete A"));
}

TEST_F(MainWindowTest, EscapeFromTheQuestionAboutErrorsIsNoAnswer)
{
    drop({padFile(u"A"_s)});
    answerAlert(u"OK"_s);
    clickTitle(0);
    const auto ask = [this] {
        window().findChild<QAction *>(u"Submit"_s)->trigger();
        return openWindow<QMessageBox>();
    };
    QTest::keyClick(ask(), Qt::Key_Escape);
    ask()->close();
    EXPECT_EQ(openWindow<QMessageBox>(), nullptr);
    EXPECT_TRUE(visible<QWidget>(u"overviewView"_s));
    ask();
    clickAlert(u"Edit PAD"_s);
    EXPECT_TRUE(visible<QWidget>(u"editView"_s));
}

TEST_F(MainWindowTest, WhatIsAddedIsInSightAndTheNextKeyOpensIt)
{
    for (int number = 10; number < 60; ++number)
        ASSERT_TRUE(AddDeleteImportEdit::createNewListing(u"M %1"_s.arg(number)));
    start();
    auto *table = visible<QTableView>(u"softwareTableView"_s);
    EXPECT_FALSE(table->currentIndex().isValid()) << "nobody went to a row yet";
    QTest::keyClicks(table, u"m 59"_s);
    EXPECT_EQ(mwqnSelSW, u"M 59"_s) << "typing finds a title";
    clickTitle(table->currentIndex().row());

    const auto expectAdded = [&](const QString &name) {
        EXPECT_EQ(mwqnSelSW, std::nullopt);
        EXPECT_EQ(table->currentIndex().data(), name);
        EXPECT_TRUE(table->viewport()->rect().contains(table->visualRect(table->currentIndex())));
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return);
        EXPECT_EQ(window().windowTitle(), name);
        window().findChild<QAction *>(u"Overview"_s)->trigger();
    };
    press(u"newSoftwareButton"_s);
    typeName(u"A"_s);
    expectAdded(u"A"_s);
    drop({padFile(u"Z"_s), padFile(u"Y"_s)});
    answerAlert(u"OK"_s);
    expectAdded(u"Y"_s);
}

TEST_F(MainWindowTest, TheToolbarOffersToBeCustomisedAndHasNoToolTips)
{
    QToolBar *bar = visible<QToolBar>(u"quillonToolbar"_s);
    QWidget *button = bar->widgetForAction(window().findChild<QAction *>(u"Overview"_s));
    QHelpEvent hover(QEvent::ToolTip, button->rect().center(), button->mapToGlobal(button->rect().center()));
    QApplication::sendEvent(button, &hover);
    EXPECT_FALSE(QToolTip::isVisible());

    QContextMenuEvent click(QContextMenuEvent::Mouse, button->rect().center(),
                            button->mapToGlobal(button->rect().center()));
    QApplication::sendEvent(button, &click);
    const auto *menu = qobject_cast<QMenu *>(QApplication::activePopupWidget());
    ASSERT_TRUE(menu);
    EXPECT_EQ(menu->actions(), QList{window().findChild<QAction *>(u"customise"_s)});
}

TEST_F(MainWindowTest, FilesComeInByTheChooserAndByDropping)
{
    press(u"importButton"_s);
    ASSERT_TRUE(eventually([] { return openWindow<QFileDialog>() != nullptr; }));
    EXPECT_EQ(openWindow<QFileDialog>()->labelText(QFileDialog::Accept), u"Choose PAD File"_s);
    EXPECT_FALSE(visible<QWidget>(u"newFolderButton"_s)->isEnabled());
    chooseFile(padFile(u"A"_s));
    EXPECT_EQ(titles(), QStringList{u"A"_s});
    EXPECT_TRUE(eventually([] { return openWindow<QMessageBox>() != nullptr; }));
    const auto *details = visible<QPlainTextEdit>(u"alertDetails"_s);
    EXPECT_TRUE(details->toPlainText().contains(u"Freemium"_s));
    const auto *ok = openWindow<QMessageBox>()->buttons().value(0);
    EXPECT_GT(ok->mapToGlobal(QPoint()).y(), details->mapToGlobal(details->rect().bottomLeft()).y());
    EXPECT_TRUE(answerAlert(u"OK"_s).startsWith(u"Import Successful"));

    drop({padFile(u"B"_s), padFile(u"C"_s)});
    EXPECT_TRUE(answerAlert(u"OK"_s).startsWith(u"Import Successful"));
    EXPECT_EQ(titles(), QStringList({u"A"_s, u"B"_s, u"C"_s}));

    drop({padFile(u"B"_s)}); // Taken: another name is asked for.
    ASSERT_TRUE(eventually([] {
        const auto all = QApplication::topLevelWidgets();
        return std::any_of(all.begin(), all.end(), [](QWidget *each) {
            return each->objectName() == u"swNamePanel" && each->isVisible();
        });
    }));
    typeName(u"B again"_s);
    EXPECT_TRUE(answerAlert(u"OK"_s).startsWith(u"Import Successful"));
    EXPECT_TRUE(titles().contains(u"B again"_s));
}

TEST_F(MainWindowTest, SelectionStaysWhileTheSubmissionWindowIsOpen)
{
    drop({padFile(u"A"_s), padFile(u"B"_s)});
    answerAlert(u"OK"_s);
    clickTitle(0);
    mwqnWOSi78tgsda = false;
    clickTitle(1);
    EXPECT_EQ(answerAlert(u"OK"_s),
              u"The submission window must be closed to select a different software title"_s);
    QTest::keyClick(visible<QTableView>(u"softwareTableView"_s), Qt::Key_Down);
    answerAlert(u"OK"_s);
    auto *table = visible<QTableView>(u"softwareTableView"_s);
    QTest::mouseClick(table->viewport(), Qt::LeftButton, {}, table->viewport()->rect().bottomLeft());
    QTest::mouseClick(table->viewport(), Qt::LeftButton, Qt::ControlModifier,
                      table->visualRect(table->currentIndex()).center());
    EXPECT_EQ(mwqnSelSW, u"A"_s) << "nor is it given up";
    EXPECT_EQ(table->currentIndex().row(), 0);
    mwqnWOSi78tgsda = true;
    QTest::keyClick(visible<QTableView>(u"softwareTableView"_s), Qt::Key_Down);
    EXPECT_EQ(mwqnSelSW, u"B"_s);
}

TEST_F(MainWindowTest, SortingAndToolbarOutliveARun)
{
    drop({padFile(u"Tool 10"_s), padFile(u"tool 9"_s)});
    answerAlert(u"OK"_s);
    const auto firstRow = [] {
        return visible<QTableView>(u"softwareTableView"_s)->model()->index(0, 0).data().toString();
    };
    EXPECT_EQ(firstRow(), u"tool 9"_s);
    visible<QTableView>(u"softwareTableView"_s)->sortByColumn(0, Qt::DescendingOrder);

    QToolBar *bar = visible<QToolBar>(u"quillonToolbar"_s);
    const qsizetype items = bar->actions().size();
    CustomiseToolbarDialog *dialog = nullptr;
    window().findChild<QAction *>(u"customise"_s)->trigger();
    ASSERT_TRUE(eventually([&] { return (dialog = openWindow<CustomiseToolbarDialog>()) != nullptr; }));
    auto *shown = dialog->findChild<QListWidget *>(u"toolbarItems"_s);
    shown->setCurrentItem(shown->findItems(u"Submit"_s, Qt::MatchExactly).value(0));
    for (QPushButton *button : dialog->findChildren<QPushButton *>()) {
        if (button->text().contains(u"Remove"_s))
            button->click();
    }
    dialog->accept();
    EXPECT_EQ(bar->actions().size(), items - 1);
    visible<QSplitter>(u"detailsSplitter"_s)->setSizes({100, 900});

    start();
    const QList<int> details = visible<QSplitter>(u"detailsSplitter"_s)->sizes();
    EXPECT_GT(details[1], 2 * details[0]);
    EXPECT_EQ(firstRow(), u"Tool 10"_s);
    EXPECT_EQ(visible<QToolBar>(u"quillonToolbar"_s)->actions().size(), items - 1);
    EXPECT_FALSE(toolbar_layout::storedOrder().contains(u"Submit"_s));
}

TEST_F(MainWindowTest, BackupsAndPreferencesAreAskedForInTheFileMenu)
{
    const auto opens = [this](const QString &command) {
        window().findChild<QAction *>(command)->trigger();
        auto *preferences = openWindow<PreferencesWindow>();
        if (preferences)
            preferences->reject();
        return preferences != nullptr;
    };
    EXPECT_TRUE(opens(u"backup"_s));
    EXPECT_TRUE(opens(u"preferences"_s));
    overview().fileMenu().disableAll();
    EXPECT_FALSE(opens(u"backup"_s)) << "not while the editor is showing";
    EXPECT_TRUE(opens(u"preferences"_s));
}

TEST_F(MainWindowTest, FailedWritesStayInSightUntilMended)
{
    const auto *line = window().findChild<QLabel *>(u"failedWrites"_s);
    EXPECT_FALSE(line->isVisible());
    const QString path = home() + u"/missing/file"_s;
    EXPECT_FALSE(storeFile(path, "x"));
    EXPECT_TRUE(line->isVisible() && line->text().contains(path)) << line->text().toStdString();
    QDir().mkpath(home() + u"/missing"_s);
    EXPECT_TRUE(storeFile(path, "x"));
    EXPECT_FALSE(line->isVisible());
}

TEST_F(MainWindowTest, EveryStopOfTheTabKeyHasAName)
{
    drop({padFile(u"A"_s)});
    answerAlert(u"OK"_s);
    clickTitle(0);
    expectNamedTabStops(window(), 7);
}

TEST_F(MainWindowTest, ASecondStartBringsTheWindowToTheFront)
{
    program().listen();
    window().hide();
    EXPECT_TRUE(SingleInstance::activateOther());
    EXPECT_TRUE(eventually([this] { return window().isVisible(); }));
}

TEST_F(MainWindowTest, WithoutARuntimeFolderNoSocketIsMade)
{
    const QString before = QDir::currentPath();
    QDir::setCurrent(home());
    // Where there is no usable one, a folder of this name is taken; this is a file.
    const QString instead = u"runtime-"_s + QString::fromLocal8Bit(getpwuid(geteuid())->pw_name);
    put(instead, {});
    const std::pair<const char *, QByteArray> variables[] = {{"XDG_RUNTIME_DIR", qgetenv("XDG_RUNTIME_DIR")},
                                                             {"TMPDIR", qgetenv("TMPDIR")}};
    for (const auto &[name, value] : variables)
        qputenv(name, home().toUtf8());
    qputenv("XDG_RUNTIME_DIR", instead.toUtf8());
    SingleInstance refused;
    refused.listen();
    EXPECT_FALSE(SingleInstance::activateOther());
    EXPECT_FALSE(names(home()).join(u' ').contains(u"quillon-"))
        << "no socket lies where the program started";
    for (const auto &[name, value] : variables)
        value.isEmpty() ? qunsetenv(name) : qputenv(name, value);
    QDir::setCurrent(before);
}

} // namespace
} // namespace quillon
