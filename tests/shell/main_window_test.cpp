#include "editor/editor_view.h"
#include "ledger/matrix_window.h"
#include "overview/title_list.h"
#include "shell/customise_toolbar_dialog.h"
#include "shell/main_window_fixture.h"
#include "shell/toolbar_layout.h"
#include "sites/preferences_window.h"
#include "store/storage_status.h"

#include <QClipboard>
#include <QContextMenuEvent>
#include <QHelpEvent>
#include <QLabel>
#include <QListWidget>
#include <QMenu>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QSplitter>
#include <QTextEdit>
#include <QToolBar>
#include <QToolTip>

#include <pwd.h>
#include <unistd.h>

TEST_F(MainWindowTest, EscapeFromTheQuestionAboutErrorsIsNoAnswer)
{
    drop({padFile(u"A"_s)});
    answerAlert(u"OK"_s);
    clickTitle(0);
    const auto ask = [this] {
        command(u"Submit"_s)->trigger();
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

TEST_F(MainWindowTest, TheToolbarOffersToBeCustomisedAndHasNoToolTips)
{
    QToolBar *bar = visible<QToolBar>(u"quillonToolbar"_s);
    QWidget *button = bar->widgetForAction(command(u"Overview"_s));
    QHelpEvent hover(QEvent::ToolTip, button->rect().center(), button->mapToGlobal(button->rect().center()));
    QApplication::sendEvent(button, &hover);
    EXPECT_FALSE(QToolTip::isVisible());

    QContextMenuEvent click(QContextMenuEvent::Mouse, button->rect().center(),
                            button->mapToGlobal(button->rect().center()));
    QApplication::sendEvent(button, &click);
    const auto *menu = qobject_cast<QMenu *>(QApplication::activePopupWidget());
    ASSERT_TRUE(menu);
    EXPECT_EQ(menu->actions(), QList{command(u"customise"_s)});
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
    command(u"customise"_s)->trigger();
    ASSERT_TRUE(eventually([&] { return (dialog = openWindow<CustomiseToolbarDialog>()) != nullptr; }));
    expectNamedTabStops(*dialog, 5);
    auto *shown = dialog->findChild<QListWidget *>(u"toolbarItems"_s);
    shown->setCurrentItem(shown->findItems(u"Submit"_s, Qt::MatchExactly).value(0));
    for (QPushButton *button : dialog->findChildren<QPushButton *>()) {
        if (button->text().contains(u"Remove"_s))
            button->click();
    }
    settings().setValue(u"any"_s, 1);
    settings().sync();
    const QString kept = settings().fileName();
    ASSERT_TRUE(QFile::rename(kept, kept + u".aside"_s) && QDir().mkdir(kept));
    dialog->accept();
    EXPECT_EQ(bar->actions().size(), items - 1);
    EXPECT_TRUE(failedExtrasLine().contains(kept));
    ASSERT_TRUE(QDir().rmdir(kept) && QFile::rename(kept + u".aside"_s, kept));
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
    const auto opens = [this](const QString &id) {
        command(id)->trigger();
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

TEST_F(MainWindowTest, AWindowThatIsCalledAgainComesBack)
{
    command(u"matrix"_s)->trigger();
    auto *matrix = openWindow<MatrixWindow>();
    ASSERT_NE(matrix, nullptr);
    matrix->showMinimized();
    command(u"matrix"_s)->trigger();
    EXPECT_FALSE(matrix->isMinimized());
    EXPECT_EQ(openWindow<MatrixWindow>(), matrix) << "the same one";
}

TEST_F(MainWindowTest, FailedWritesStayInSightUntilMended)
{
    const auto *line = window().findChild<QLabel *>(u"failedWrites"_s);
    EXPECT_FALSE(line->isVisible());
    const QString path = home() + u"/missing/file"_s;
    EXPECT_FALSE(storeFile(path, "x"));
    EXPECT_TRUE(line->isVisible() && line->text().contains(path)) << line->text();
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
    EXPECT_TRUE(SingleInstance::handOver({}).isError(Error::Kind::Missing));
    EXPECT_FALSE(names(home()).join(u' ').contains(u"quillon-"))
        << "no socket lies where the program started";
    for (const auto &[name, value] : variables)
        value.isEmpty() ? qunsetenv(name) : qputenv(name, value);
    QDir::setCurrent(before);
}

TEST_F(MainWindowTest, UndoGoesBackThroughFieldsAndRuns)
{
    using enum FieldId;
    drop({padFile(u"A"_s)});
    answerAlert(u"OK"_s);
    clickTitle(0);
    EXPECT_FALSE(command(u"undo"_s)->isEnabled()) << "an import is no step";
    command(u"Edit"_s)->trigger();
    const auto field = [this](FieldId id) {
        return window().findChild<QWidget *>(padField(id).control.toString());
    };
    const auto key = [](const QKeySequence &keys) { QTest::keySequence(QApplication::focusWidget(), keys); };
    const auto value = [this](const QByteArray &element) {
        const QByteArray pad = contents(inData(u"A.qndata/data.qnxml"_s));
        const qsizetype start = pad.indexOf(QByteArray('<' + element + '>')) + element.size() + 2;
        return pad.sliced(start, pad.indexOf('<', start) - start);
    };
    auto *view = window().findChild<EditorView *>();
    view->revealField(companyName);
    QTest::keyClicks(field(companyName), u"Smith"_s);
    view->revealField(eula);
    QTest::keyClicks(field(eula), u"Free"_s);
    EXPECT_TRUE(command(u"undo"_s)->isEnabled());
    key(u"Ctrl+Z"_s);
    EXPECT_NE(value("EULA"), "Free") << "the field itself";
    key(u"Ctrl+Shift+Z"_s);
    EXPECT_EQ(value("EULA"), "Free");
    view->revealField(programVersion);
    key(u"Ctrl+Z"_s);
    EXPECT_EQ(value("EULA"), QByteArray());
    EXPECT_EQ(QApplication::focusWidget(), field(eula)) << "it shows what has changed";

    start();
    clickTitle(0);
    command(u"Edit"_s)->trigger();
    view = window().findChild<EditorView *>();
    view->revealField(appInfoURL);
    key(u"Ctrl+Z"_s);
    EXPECT_EQ(value("Company_Name"), QByteArray());
    EXPECT_EQ(QApplication::focusWidget(), field(companyName));
    EXPECT_FALSE(command(u"undo"_s)->isEnabled());
    key(u"Ctrl+Shift+Z"_s);
    key(u"Ctrl+Shift+Z"_s);
    EXPECT_EQ(value("EULA"), "Free");
    EXPECT_FALSE(command(u"redo"_s)->isEnabled());

    QApplication::clipboard()->setText(u"Quite another"_s);
    qobject_cast<QPlainTextEdit *>(field(eula))->selectAll();
    key(QKeySequence::Paste);
    QTest::keyClicks(field(eula), u"!"_s);
    view->revealField(companyName);
    key(u"Ctrl+Z"_s);
    EXPECT_EQ(value("EULA"), "Quite another") << "a pasted whole is a step of its own";
}

TEST_F(MainWindowTest, EarlierTextsAreShownAndBroughtBack)
{
    using enum FieldId;
    drop({padFile(u"A"_s)});
    answerAlert(u"OK"_s);
    clickTitle(0);
    command(u"Edit"_s)->trigger();
    auto *view = window().findChild<EditorView *>();
    view->revealField(eula);
    auto *eulaText = window().findChild<QPlainTextEdit *>(u"eula"_s);
    for (const QString &text : {u"Free for all"_s, u"Free for two"_s}) {
        eulaText->selectAll();
        QTest::keyClicks(eulaText, text);
        view->revealField(companyName);
        view->revealField(eula);
    }
    QTest::keyClicks(window().findChild<QLineEdit *>(u"companyName"_s), u"Smith"_s);

    QContextMenuEvent request(QContextMenuEvent::Keyboard, {}, eulaText->mapToGlobal(QPoint()));
    QApplication::sendEvent(eulaText, &request);
    auto *menu = qobject_cast<QMenu *>(QApplication::activePopupWidget());
    ASSERT_TRUE(menu);
    menu->findChild<QAction *>(u"earlierTexts"_s)->trigger();
    menu->close();
    auto *moments = visible<QTableView>(u"moments"_s);
    ASSERT_EQ(moments->model()->rowCount(), 2);
    const auto marked = [](const QString &name) { // What is struck out or underlined.
        QString text;
        auto *widget = visible<QTextEdit>(name);
        for (QTextCursor at(widget->document()); !at.atEnd(); at.movePosition(QTextCursor::Right)) {
            QTextCursor next = at;
            next.movePosition(QTextCursor::Right);
            if (next.charFormat().fontStrikeOut() || next.charFormat().fontUnderline())
                text += widget->document()->characterAt(at.position());
        }
        return text;
    };
    EXPECT_EQ(marked(u"textBefore"_s), u"all"_s);
    EXPECT_EQ(marked(u"textAfter"_s), u"two"_s);
    EXPECT_FALSE(visible<QPushButton>(u"textAfterRestore"_s)->isEnabled());
    press(u"textBeforeRestore"_s);
    EXPECT_EQ(eulaText->toPlainText(), u"Free for all"_s);
    EXPECT_EQ(moments->model()->rowCount(), 3) << "restoring is a moment, too";

    command(u"history"_s)->trigger();
    ASSERT_TRUE(eventually([] { return visible<QTableView>(u"moments"_s)->model()->rowCount() == 5; }));
    visible<QTableView>(u"moments"_s)->selectRow(4); // The import.
    press(u"restoreTitle"_s);
    EXPECT_EQ(eulaText->toPlainText(), QString());
    command(u"undo"_s)->trigger();
    EXPECT_EQ(eulaText->toPlainText(), u"Free for all"_s);
    press(u"closeHistory"_s);
}

TEST_F(MainWindowTest, TheFirstMinuteHasAnExampleAndANewTitleTakesOver)
{
    press(u"tryExampleButton"_s);
    ASSERT_EQ(mwqnSelSW, u"Tide Table (Example)");
    EXPECT_TRUE(overview().validationErrors().empty());
    EXPECT_EQ(loadSummary(*mwqnSelSW)->validated, u"1");
    press(u"removeExampleButton"_s);
    EXPECT_EQ(titles(), QStringList());
    EXPECT_FALSE(window().findChild<QWidget *>(u"removeExampleButton"_s)->isVisible());

    press(u"tryExampleButton"_s); // Of which nothing is ever offered.
    command(u"Edit"_s)->trigger();
    const auto *bar = window().findChild<QWidget *>(u"takingOverBar"_s);
    auto *company = window().findChild<QLineEdit *>(u"companyName"_s);
    const auto edit = [&](const QString &name) {
        command(u"Overview"_s)->trigger();
        press(u"newSoftwareButton"_s);
        typeName(name);
        clickTitle(0); // Each name comes before the others.
        command(u"Edit"_s)->trigger();
    };
    edit(u".B"_s);
    EXPECT_FALSE(bar->isVisible());
    QTest::keyClicks(company, u"Smith"_s);
    edit(u".A"_s);
    ASSERT_TRUE(bar->isVisible());
    const QByteArray untouched = contents(inData(u".A.qndata/data.qnxml"_s));
    press(u"takeOverButton"_s);
    EXPECT_EQ(company->text(), u"Smith");
    EXPECT_FALSE(bar->isVisible());
    command(u"undo"_s)->trigger();
    EXPECT_EQ(contents(inData(u".A.qndata/data.qnxml"_s)), untouched);
}
