#include "changes/change_preview_window.h"
#include "shell/main_window_fixture.h"

#include <QComboBox>
#include <QLabel>
#include <QListWidget>
#include <QTabWidget>

/// The windows of the menu "Title" that plan changes, driven as an author does.
class PlanWindowsTest : public MainWindowTest
{
protected:
    static QString outcome() { return visible<QLabel>(u"planOutcome"_s)->text(); }
    static bool isReady()
    {
        auto *apply = visible<QPushButton>(u"applyPlan"_s);
        return eventually([&] { return apply->isEnabled(); });
    }
    static QString cell(const QString &table, int row, int column)
    {
        return visible<QTableView>(table)->model()->index(row, column).data().toString();
    }
    static void clickTick(const QString &table, int row)
    {
        auto *view = visible<QTableView>(table);
        const QRect cell = view->visualRect(view->model()->index(row, 0));
        QTest::mouseClick(view->viewport(), Qt::LeftButton, {}, {cell.left() + 12, cell.center().y()});
    }
    static QByteArray padOf(const QString &title)
    {
        return contents(inData(title + u".qndata/data.qnxml"_s));
    }
};

TEST_F(PlanWindowsTest, FixesAreTickedAppliedAndTakenBack)
{
    for (const QString &title : {u"A"_s, u"B"_s})
        ASSERT_TRUE(AddDeleteImportEdit::createNewListing(title));
    put(inData(u"A.qndata/data.qnxml"_s),
        "<Author_First_Name>Ann</Author_First_Name><Author_Last_Name>Lee</Author_Last_Name>"
        "<Author_Email>ann@lee.org</Author_Email>");
    overview().loadSoftwareList();
    EXPECT_FALSE(visible<QPushButton>(u"fixButton"_s)->isEnabled());
    clickTitle(0);
    press(u"fixButton"_s);
    ASSERT_TRUE(isReady());
    EXPECT_EQ(cell(u"plannedChanges"_s, 0, 0) + cell(u"plannedChanges"_s, 0, 2), u"Contact first nameAnn"_s);
    clickTick(u"plannedChanges"_s, 0);
    press(u"applyPlan"_s);
    EXPECT_EQ(outcome(), u"1 title was changed."_s);
    EXPECT_TRUE(padOf(u"A"_s).contains("<Contact_First_Name></") &&
                padOf(u"A"_s).contains("<Contact_Last_Name>Lee</"));
    press(u"undoPlan"_s);
    EXPECT_EQ(outcome(), u"1 title was brought back to what it was."_s);
    EXPECT_TRUE(padOf(u"A"_s).contains("<Contact_Last_Name></"));

    ASSERT_TRUE(isReady()) << "it is planned anew";
    press(u"applyPlan"_s);
    press(u"closePlan"_s);
    command(u"Edit"_s)->trigger();
    command(u"undo"_s)->trigger();
    EXPECT_TRUE(padOf(u"A"_s).contains("<Contact_First_Name></")) << "it is a step of the open title, too";
}

TEST_F(PlanWindowsTest, AReleaseIsFilledInAndItsMistakesAreTold)
{
    ASSERT_TRUE(AddDeleteImportEdit::createNewListing(u"B"_s));
    overview().loadSoftwareList();
    command(u"newRelease"_s)->trigger();
    QTest::keyClicks(visible<QDialog>(u"releaseWindow"_s)->focusWidget(), u"1.5"_s);
    ASSERT_TRUE(isReady()) << "the only title is ticked without being selected";
    press(u"closePlan"_s);
    ASSERT_TRUE(AddDeleteImportEdit::createNewListing(u"A"_s));
    overview().loadSoftwareList();
    clickTitle(1);
    command(u"newRelease"_s)->trigger();
    EXPECT_EQ(outcome(), u"Give the version of the release."_s);
    QTest::keyClicks(visible<QDialog>(u"releaseWindow"_s)->focusWidget(), u"1.5"_s);
    ASSERT_TRUE(isReady());
    EXPECT_EQ(cell(u"plannedTitles"_s, 0, 1), QString()) << "only the selected one is ticked";
    EXPECT_EQ(cell(u"plannedChanges"_s, 0, 2), u"1.5"_s);
    type(u"releaseFile"_s, home() + u"/none.zip"_s);
    EXPECT_TRUE(eventually([] { return outcome() == u"The released file: there is no such file."_s; }));
    put(home() + u"/tool-1.4.zip"_s, "12345");
    type(u"releaseFile"_s, home() + u"/tool-1.4.zip"_s);
    clickTick(u"plannedTitles"_s, 0);
    ASSERT_TRUE(isReady());
    EXPECT_EQ(visible<QPushButton>(u"applyPlan"_s)->text(), u"Appl&y to 2 Titles"_s);
    auto *notes = visible<QListWidget>(u"consequences"_s);
    EXPECT_EQ(notes->item(notes->count() - 1)->text(),
              u"Note: The name of the file tool-1.4.zip has the version 1.4 in it, not 1.5."_s);
    press(u"applyPlan"_s);
    EXPECT_TRUE(padOf(u"A"_s).contains("<File_Size_Bytes>5<") && padOf(u"B"_s).contains("Version>1.5<"));
    EXPECT_EQ(overview().softwareTable().index(0, SoftwareTable::Version).data(), u"1.5"_s);

    press(u"closePlan"_s);
    command(u"Edit"_s)->trigger();
    command(u"newRelease"_s)->trigger();
    QTest::keyClicks(visible<QLineEdit>(u"releaseVersion"_s), u"1.6"_s);
    ASSERT_TRUE(isReady());
    press(u"applyPlan"_s);
    press(u"closePlan"_s);
    visible<QTabWidget>(u"editorTabs"_s)->setCurrentIndex(1);
    EXPECT_EQ(visible<QLineEdit>(u"programVersion"_s)->text(), u"1.6"_s) << "in its editor";
    EXPECT_TRUE(padOf(u"B"_s).contains("Version>1.6<") && padOf(u"A"_s).contains("Version>1.5<"));
}

TEST_F(PlanWindowsTest, ValuesAreSetInAllTitlesThatHaveOneInCommon)
{
    for (const QString &title : {u"A"_s, u"B"_s, u"C"_s}) {
        ASSERT_TRUE(AddDeleteImportEdit::createNewListing(title));
        if (title != u"B"_s)
            put(inData(title + u".qndata/data.qnxml"_s), "<Company_Name>Acme</Company_Name>");
    }
    overview().loadSoftwareList();
    clickTitle(0);
    command(u"changeInTitles"_s)->trigger();
    EXPECT_EQ(visible<QDialog>(u"bulkChangeWindow"_s)->focusWidget()->objectName(), u"set0Line"_s);
    type(u"set0Line"_s, u"Acme Ltd"_s);
    press(u"anotherField"_s);
    visible<QComboBox>(u"set1Field"_s)->setCurrentText(u"City/Town"_s);
    type(u"set1Line"_s, u"Bonn"_s);
    ASSERT_TRUE(isReady());
    auto *planned = visible<QTableView>(u"plannedTitles"_s);
    EXPECT_EQ(planned->model()->rowCount(), 2);
    press(u"anotherCondition"_s);
    visible<QComboBox>(u"where1Field"_s)->setCurrentText(u"Country"_s);
    type(u"where1Line"_s, u"Norway"_s);
    ASSERT_TRUE(eventually([&] { return planned->model()->rowCount() == 0; })) << "all of them are asked";
    visible<QComboBox>(u"whereField"_s)->setFocus();
    QStringList order;
    for (const QWidget *stop : tabStops(*planned->window()))
        order.append(stop->objectName());
    EXPECT_EQ(order.first(8).join(u' '), u"whereField whereLine where1Field where1Line set0Field set0Line "
                                         "set1Field set1Line"_s);
    visible<QLineEdit>(u"where1Line"_s)->clear();
    ASSERT_TRUE(eventually([&] { return planned->model()->rowCount() == 2; }));
    press(u"applyPlan"_s);
    EXPECT_EQ(outcome(), u"2 titles were changed."_s);
    EXPECT_TRUE(padOf(u"C"_s).contains("<Company_Name>Acme Ltd<") &&
                padOf(u"C"_s).contains("<City_Town>Bonn<"));
}
