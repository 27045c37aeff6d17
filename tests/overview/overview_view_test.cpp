#include "findings/rule_packs_window.h"
#include "pad/pad_document.h"
#include "platform/notification_center.h"
#include "platform/notifications.h"
#include "shell/main_window_fixture.h"
#include "store/add_delete_import_edit.h"
#include "store/storage_status.h"
#include "store/title_folder.h"

#include <QHeaderView>
#include <QLabel>
#include <QListWidget>
#include <QPlainTextEdit>
#include <QScrollBar>
#include <QTabWidget>
#include <QTextEdit>

using OverviewViewTest = MainWindowTest;

TEST_F(OverviewViewTest, ATitleFromItsCreationToItsEnd)
{
    EXPECT_TRUE(visible<QWidget>(u"emptyListPage"_s)) << "an empty list says what to do first";
    press(u"newSoftwareButton"_s);
    expectNamedTabStops(*visible<QDialog>(u"swNamePanel"_s), 3);
    typeName({});
    EXPECT_EQ(visible<QLabel>(u"swNamePanelMessage"_s)->text(),
              u"You Must Enter a Name for the Software Title"_s);
    typeName(u"First <b>title"_s);
    EXPECT_EQ(titles(), QStringList{u"First <b>title"_s});
    EXPECT_FALSE(visible<QPushButton>(u"deleteButton"_s)->isEnabled());

    clickTitle(0);
    EXPECT_EQ(mwqnSelSW, u"First <b>title"_s);
    command(u"Edit"_s)->trigger();
    EXPECT_EQ(window().windowTitle(), u"First <b>title"_s) << "the editor says whose PAD file it shows";
    command(u"Overview"_s)->trigger();
    EXPECT_EQ(window().windowTitle(), u"Quillon"_s);
    overview().deselectAll();
    command(u"Edit"_s)->trigger();
    answerAlert(u"OK"_s);
    EXPECT_TRUE(command(u"Overview"_s)->isChecked());
    QTest::keyClick(visible<QTableView>(u"softwareTableView"_s), Qt::Key_Down);
    EXPECT_EQ(mwqnSelSW, u"First <b>title"_s) << "the place is kept, and a key selects it";
    for (const bool enabled : {false, true}) {
        enabled ? overview().fileMenu().enableAll() : overview().fileMenu().disableAll();
        for (const QString &button : {u"importButton"_s, u"renameButton"_s, u"deleteButton"_s})
            EXPECT_EQ(visible<QPushButton>(button)->isEnabled(), enabled) << button;
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

TEST_F(OverviewViewTest, TheHintOfAnEmptyListStandsOutWithAFontOfPixelsToo)
{
    const QFont before = QApplication::font();
    QFont font = before;
    font.setPixelSize(20);
    QApplication::setFont(font);
    start();
    int tallest = 0;
    for (const QLabel *label : visible<QWidget>(u"emptyListPage"_s)->findChildren<QLabel *>())
        tallest = qMax(tallest, label->fontInfo().pixelSize());
    QApplication::setFont(before);
    EXPECT_EQ(tallest, 28);
}

TEST_F(OverviewViewTest, TheKeyThatDeletesATitleBelongsToTheList)
{
    drop({padFile(u"A"_s)});
    answerAlert(u"OK"_s);
    clickTitle(0);
    command(u"Edit"_s)->trigger();
    // As when the submission window was closed: the commands of the File menu can be used again.
    NotificationCenter::defaultCenter().post(notification::mwqnRS87968tJHKgfds);
    visible<QTabWidget>(u"editorTabs"_s)->setCurrentIndex(1);
    const QList<QListView *> lists = visible<QWidget>(u"editView"_s)->findChildren<QListView *>();
    ASSERT_FALSE(lists.isEmpty());
    for (QListView *list : lists) {
        list->setFocus();
        QTest::keyClick(list, Qt::Key_Delete);
        EXPECT_EQ(openWindow<QMessageBox>(), nullptr) << list->objectName();
    }
    command(u"Overview"_s)->trigger();
    visible<QTableView>(u"softwareTableView"_s)->setFocus();
    QTest::keyClick(visible<QTableView>(u"softwareTableView"_s), Qt::Key_Delete);
    EXPECT_TRUE(answerAlert(u"Cancel"_s).startsWith(u"Do you really want to delete A"));
}

TEST_F(OverviewViewTest, WhatIsAddedIsInSightAndTheNextKeyOpensIt)
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
        command(u"Overview"_s)->trigger();
    };
    press(u"newSoftwareButton"_s);
    typeName(u"A"_s);
    expectAdded(u"A"_s);
    drop({padFile(u"Z"_s), padFile(u"Y"_s)});
    answerAlert(u"OK"_s);
    expectAdded(u"Y"_s);
}

TEST_F(OverviewViewTest, ColumnsAreSortedByKeys)
{
    for (const QString &name : {u"A"_s, u"B"_s, u"C"_s})
        ASSERT_TRUE(AddDeleteImportEdit::createNewListing(name));
    start();
    auto *table = visible<QTableView>(u"softwareTableView"_s);
    QHeaderView *header = table->horizontalHeader();
    header->moveSection(0, 2);
    header->hideSection(2);
    // In the order of sight: version, the title's name, then systems.
    const std::pair<QString, int> presses[] = {{u"Ctrl+Shift+Left"_s, SoftwareTable::Version},
                                               {u"Ctrl+Shift+Left"_s, SoftwareTable::Submissions},
                                               {u"Ctrl+Shift+Right"_s, SoftwareTable::Version},
                                               {u"Ctrl+Shift+Right"_s, SoftwareTable::SoftwareTitle},
                                               {u"Ctrl+Shift+Down"_s, SoftwareTable::SoftwareTitle}};
    for (const auto &[keys, column] : presses) {
        QTest::keySequence(table, QKeySequence(keys));
        EXPECT_EQ(header->sortIndicatorSection(), column) << keys;
    }
    EXPECT_EQ(table->model()->index(0, 0).data().toString(), u"C");
    EXPECT_TRUE(table->accessibleDescription().startsWith(u"Sorted by Software Title, descending."));
}

TEST_F(OverviewViewTest, FilesComeInByTheChooserAndByDropping)
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
}

TEST_F(OverviewViewTest, SelectionStaysWhileTheSubmissionWindowIsOpen)
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

TEST_F(OverviewViewTest, MessagesAreExplainedAndAdviceStandsBelow)
{
    const PadDocument document(
        u"<XML_DIZ_INFO><MASTER_PAD_VERSION_INFO></MASTER_PAD_VERSION_INFO><Program_Name>T</Program_Name>"
        "<Keywords>a,b,a</Keywords><Application_Icon_URL>http://a.example/a.gif</Application_Icon_URL>"
        "</XML_DIZ_INFO>"_s);
    ASSERT_TRUE(AddDeleteImportEdit::importExistingFile(u"T"_s, document));
    overview().loadSoftwareList();
    clickTitle(0);
    auto *messages = visible<QListWidget>(u"validationErrorsView"_s);
    const auto told = [] { return visible<QTextEdit>(u"findingsPane"_s)->toPlainText(); };
    EXPECT_EQ(messages->item(0)->text(), u"The application information url is too long."_s);
    EXPECT_EQ(told(),
              u"The address of the application information is empty. Give an address, such as "
              "http://www.example.com/.\nHint: Some keywords stand there more than once: “a”. Take out "
              "what is repeated, and use the room for others."_s);
    const auto *scrollBar = visible<QTextEdit>(u"findingsPane"_s)->verticalScrollBar();
    EXPECT_TRUE(QTest::qWaitFor([&] { return scrollBar->maximum() == 0; })) << "a part of it is out of sight";
    messages->setFocus();
    QTest::keyClick(messages, Qt::Key_End);
    EXPECT_TRUE(told().startsWith(u"The support e-mail address is empty.")) << told();

    command(u"rulePacks"_s)->trigger();
    auto *packs = visible<RulePacksWindow>(u"rulePacksWindow"_s);
    expectNamedTabStops(*packs, 3);
    QTest::keyClick(visible<QListWidget>(u"rulePacks"_s), Qt::Key_Space);
    EXPECT_TRUE(told().contains(u"Hint: The icon address begins with http://."_s)) << told();
    const QString file = home() + u"/pack.json"_s;
    put(file, "{}");
    packs->add(file);
    EXPECT_TRUE(visible<QLabel>(u"rulePacksOutcome"_s)->text().contains(u"“id” has to be a text"_s));
    put(file, R"({"id": "own", "title": "Own", "rules": [{"id": "name", "severity": "hint", "summary": "s",
                  "explanation": "Ours is better.", "fields": ["programName"], "maxLength": 0}]})");
    for (int times = 0; times < 2; ++times)
        packs->add(file);
    EXPECT_EQ(told().count(u"Ours is better."), 1) << told();
    QTest::keyClick(visible<QListWidget>(u"rulePacks"_s), Qt::Key_Space);
    EXPECT_FALSE(told().contains(u"http://."_s)) << told();

    const QString kept = settings().fileName();
    ASSERT_TRUE(QFile::remove(kept) && QDir().mkdir(kept));
    QTest::keyClick(visible<QListWidget>(u"rulePacks"_s), Qt::Key_Space);
    EXPECT_TRUE(told().contains(u"http://."_s)) << "until Quillon ends";
    EXPECT_TRUE(visible<QLabel>(u"rulePacksOutcome"_s)->text().contains(kept));
    EXPECT_EQ(visible<QLabel>(u"rulePacksOutcome"_s)->text(), failedExtrasLine());
    ASSERT_TRUE(QDir().rmdir(kept));
    QTest::keyClick(visible<QListWidget>(u"rulePacks"_s), Qt::Key_Space);
    EXPECT_EQ(visible<QLabel>(u"rulePacksOutcome"_s)->text() + failedExtrasLine(), QString());
}
