#include "editor/editor_view_fixture.h"
#include "platform/plain_text.h"

#include <QClipboard>
#include <QCompleter>
#include <QHelpEvent>
#include <QListWidget>
#include <QToolTip>

TEST_F(EditorViewTest, EachKeyIsCountedColouredAndStored)
{
    FieldLineEdit *name = line(companyName);
    QTest::keyClicks(name, u"A"_s);
    EXPECT_EQ(stored(companyName), u"A"_s);
    EXPECT_TRUE(showsRed(name)) << "one character is too short";
    QTest::keyClicks(name, u"cme"_s);
    EXPECT_EQ(label(u"companyNameMessage"_s)->text().replace(QChar::Nbsp, u' '),
              u"Text string 2-40 characters        4 / 40"_s);
    EXPECT_FALSE(showsRed(name));
    EXPECT_EQ(name->toolTip(), QString());
    QTest::keyClicks(name, QString(37, u'x'));
    EXPECT_TRUE(showsRed(name));
    EXPECT_NE(label(u"companyNameLabel"_s)->palette().color(QPalette::WindowText),
              view->palette().color(QPalette::WindowText));
    EXPECT_EQ(ErrorTracking::returnErrorDictionary()->at(u"companyName"_s),
              u"The company name is too long."_s);
    EXPECT_EQ(name->accessibleDescription(), u"The company name is too long."_s);
    const QString explained =
        u"The company name is too long.\nThe company name has 41 characters. At most 40 fit: take out 1."_s;
    QHelpEvent hover(QEvent::ToolTip, {}, name->mapToGlobal(QPoint()));
    QApplication::sendEvent(name, &hover);
    EXPECT_EQ(QToolTip::text(), plainToolTip(explained));
    line(authorEmail);
    EXPECT_EQ(line(companyName)->accessibleDescription(), explained);
}

TEST_F(EditorViewTest, FiltersKeepTheCursorInTheMiddle)
{
    FieldLineEdit *country = line(companyCountry);
    QTest::keyClicks(country, u"Iceland"_s);
    country->setCursorPosition(3);
    QTest::keyClicks(country, u"1x2"_s);
    EXPECT_EQ(country->text(), u"Icexland"_s);
    EXPECT_EQ(country->cursorPosition(), 4);
    EXPECT_EQ(stored(companyCountry), u"Icexland"_s);

    FieldTextEdit *description = text(pd45CharDescript);
    QTest::keyClicks(description, QString(50, u'a'));
    EXPECT_TRUE(showsRed(description->viewport()));
    QTextCursor cursor = description->textCursor();
    cursor.setPosition(10);
    description->setTextCursor(cursor);
    QTest::keyClick(description, Qt::Key_Backspace);
    EXPECT_EQ(description->textCursor().position(), 9);
    EXPECT_EQ(stored(pd45CharDescript).size(), 49);
}

TEST_F(EditorViewTest, OddTextsComeThroughUnchanged)
{
    const QStringList odd = {u"no\u00A0break"_s,    u"\u05E9\u05DC\u05D5\u05DD"_s,
                             u"emoji \U0001F600"_s, u"tab\tinside"_s,
                             u"a & b < c > d"_s,    u"$1 ${2} \\1"_s};
    FieldTextEdit *edit = text(eula);
    for (const QString &each : odd) {
        edit->selectAll();
        edit->insertPlainText(each);
        EXPECT_EQ(stored(eula), each);
    }
    QApplication::clipboard()->setText(QString(1000000, u'x'));
    text(pd2000CharDescript)->paste();
    EXPECT_EQ(stored(pd2000CharDescript).size(), 1000000);
    line(companyName)->paste();
    EXPECT_EQ(stored(companyName).size(), 1000000);
}

TEST_F(EditorViewTest, LeavingADatePutsItInOrder)
{
    QTest::keyClicks(line(releaseDateDay), u"7"_s);
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
    QTest::keyClicks(QApplication::focusWidget(), u"13"_s);
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
    EXPECT_EQ(stored(releaseDateDay), u"07"_s);
    EXPECT_EQ(stored(releaseDateMonth), u"12"_s);

    QTest::keyClicks(line(expireDateYear), u"2012"_s);
    EXPECT_EQ(stored(expireDateYear), u"20"_s);
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
    EXPECT_EQ(sheets.lastMessage(), u"The Expiry Year must be between 1900 and 2199!"_s);
    EXPECT_EQ(sheets.windows, QList{SheetWindow::Main});
    EXPECT_EQ(stored(expireDateYear), u"2010"_s);
}

TEST_F(EditorViewTest, ChoicesAreSearchedByTyping)
{
    auto *category = widget<FieldComboBox>(categoryPopUp);
    category->lineEdit()->selectAll();
    QTest::keyClicks(category->lineEdit(), u"security & privacy::encryption tools"_s);
    QTest::keyClick(category->lineEdit(), Qt::Key_Return);
    EXPECT_EQ(stored(categoryPopUp), u"Security & Privacy::Encryption Tools"_s);
    category->lineEdit()->selectAll();
    QTest::keyClicks(category->lineEdit(), u"no such thing"_s);
    QTest::keyClick(category->lineEdit(), Qt::Key_Return);
    EXPECT_EQ(category->currentText(), u"Security & Privacy::Encryption Tools"_s);

    const QString astrology = u"Home & Hobby::Astrology/Biorhythms/Mystic"_s;
    const struct
    {
        QString part;
        Qt::Key key;
        QString taken;
    } parts[] = {{u"ASTROL"_s, Qt::Key_Return, astrology},
                 {u"astr"_s, Qt::Key_Return, astrology}, // Two items hold it.
                 {u"encryption t"_s, Qt::Key_Tab, u"Security & Privacy::Encryption Tools"_s},
                 {u"astrol"_s, Qt::Key_Backtab, astrology},
                 {u"astr"_s, Qt::Key_Tab, astrology}};
    for (const auto &[part, key, taken] : parts) {
        category->setFocus();
        category->lineEdit()->selectAll();
        QTest::keyClicks(category->lineEdit(), part);
        QTest::keyClick(category->completer()->popup(), key); // The list has the keyboard while it is open.
        EXPECT_EQ(stored(categoryPopUp), taken) << part.toUtf8().constData();
    }

    auto *languages = widget<QListView>(languageTable);
    view->findChild<QLineEdit *>(u"languageTableFilter"_s)->setText(u"chinese"_s);
    ASSERT_EQ(languages->model()->rowCount(), 3);
    languages->setCurrentIndex(languages->model()->index(1, 0));
    QTest::keyClick(languages, Qt::Key_Space);
    EXPECT_EQ(stored(languageTable), u"ChineseSimplified"_s);

    auto *expires = widget<FieldCheckBox>(expireCheckBox);
    QTest::mouseClick(expires, Qt::LeftButton, {}, {8, expires->height() / 2});
    EXPECT_EQ(stored(expireCheckBox), u"Y"_s);
}

TEST_F(EditorViewTest, PagesTellTheirErrorsAndTakeTheFocus)
{
    QTabWidget *tabs = editorTabs();
    const QString before = tabs->tabToolTip(3);
    QTest::keyClicks(line(appInfoURL), u"http://example.org/"_s);
    EXPECT_EQ(before, u"5 errors on this page"_s);
    EXPECT_EQ(tabs->tabToolTip(3), u"4 errors on this page"_s);
    EXPECT_EQ(tabs->tabText(3), u"Web Information"_s);
    EXPECT_FALSE(tabs->tabIcon(3).isNull());
    EXPECT_TRUE(tabs->tabIcon(2).isNull());

    tabs->setCurrentIndex(0);
    tabs->setCurrentIndex(3);
    auto *focused = qobject_cast<QLineEdit *>(QApplication::focusWidget());
    ASSERT_NE(focused, nullptr);
    EXPECT_EQ(focused->objectName(), u"appInfoURL"_s);
    EXPECT_EQ(focused->cursorPosition(), focused->text().size());
    EXPECT_FALSE(focused->hasSelectedText());
    view->focusField(keywordsView); // On another page: the page that shows keeps the keyboard.
    EXPECT_EQ(QApplication::focusWidget(), focused);
}

TEST_F(EditorViewTest, APadFileThatCannotBeReadIsToldAndNothingIsTyped)
{
    QTest::keyClicks(line(companyName), u"Acme"_s);
    const QString file = *mwqnCurrentSWBundle + u"/data.qnxml"_s;
    ASSERT_TRUE(QFile::rename(file, file + u".aside"_s) && QDir().mkdir(file));
    editor.loadPADData();
    editor.checkEntriesForErrors();
    auto *told = visible<QLabel>(u"unreadableFile"_s);
    ASSERT_TRUE(told);
    EXPECT_TRUE(told->text().startsWith(u"The PAD file cannot be read: "));
    auto *name = view->findChild<FieldLineEdit *>(u"companyName"_s);
    QTest::keyClicks(name, u"lost"_s);
    EXPECT_EQ(name->text(), QString());

    ASSERT_TRUE(QDir().rmdir(file) && QFile::rename(file + u".aside"_s, file));
    press(u"readAgainButton"_s);
    EXPECT_FALSE(told->isVisible());
    QTest::keyClicks(line(companyName), u" Ltd"_s);
    EXPECT_EQ(stored(companyName), u"Acme Ltd"_s);
}

/// Nothing is changed, and no key taken, unless the author chooses.
TEST_F(EditorViewTest, WhatOtherTitlesHoldIsOfferedQuietly)
{
    for (const QString &title : {u"A"_s, u"B"_s, u"C"_s}) {
        ASSERT_TRUE(AddDeleteImportEdit::createNewListing(title));
        const QString name = title == u"A"_s ? u"Acme & Sons"_s : u"Active Soft"_s;
        put(inData(title + u".qndata/data.qnxml"_s),
            u"<Company_Name>%1</Company_Name>"_s.arg(name.toHtmlEscaped()).toUtf8());
    }
    FieldLineEdit *name = line(companyName);
    auto *list = view->findChild<QListWidget *>(u"completionView"_s);
    ASSERT_TRUE(eventually([&] {
        QTest::keyClick(name, Qt::Key_Down, Qt::AltModifier);
        return list->isVisible();
    })) << "all there are, the most frequent first";
    EXPECT_EQ(list->item(0)->text() + u'|' + list->item(1)->text(), u"Active Soft|Acme & Sons"_s);
    QTest::keyClick(name, Qt::Key_Escape);
    EXPECT_FALSE(list->isVisible());

    QTest::keyClicks(name, u"ac"_s);
    EXPECT_TRUE(eventually([&] { return list->isVisible(); }));
    QTest::keyClicks(name, u" "_s);
    QTest::keyClick(name, Qt::Key_Return);
    EXPECT_EQ(name->text() + stored(companyName), u"ac ac "_s);
    QTest::keyClick(name, Qt::Key_Backspace);
    QTest::keyClick(name, Qt::Key_Backspace);
    EXPECT_TRUE(eventually([&] { return list->isVisible(); }));
    for (const Qt::Key key : {Qt::Key_Down, Qt::Key_Down, Qt::Key_Up, Qt::Key_Down, Qt::Key_Return})
        QTest::keyClick(name, key);
    EXPECT_FALSE(list->isVisible());
    EXPECT_EQ(stored(companyName), u"Acme & Sons"_s);
    EXPECT_TRUE(name->hasFocus());
    name->undo();
    EXPECT_EQ(name->text(), u"a"_s);

    QTest::keyClick(name, Qt::Key_End);
    QTest::keyClick(name, Qt::Key_C);
    EXPECT_TRUE(eventually([&] { return list->isVisible(); }));
    QTest::mouseClick(list->viewport(), Qt::LeftButton, {}, list->visualItemRect(list->item(0)).center());
    EXPECT_EQ(stored(companyName), u"Active Soft"_s);
    QTest::keyClick(name, Qt::Key_Tab);
    EXPECT_FALSE(name->hasFocus());
}
