#include "shell/window_walk.h"
#include "store/error_tracking.h"
#include "support/listener.h"
#include "widgets/validation_palette.h"

#include <QDateEdit>
#include <QLabel>
#include <QListWidget>
#include <QScrollBar>

#include <cmath>

namespace {

/// A style's colours: window, fields, and what is written on both.
struct Look
{
    const char *name;
    QColor window;
    QColor base;
    QColor text;
};

const Look looks[] = {{"light", 0xefefef, Qt::white, Qt::black},
                      {"dark", 0x353535, 0x1e1e1e, Qt::white},
                      {"white on black", Qt::black, Qt::black, Qt::white},
                      {"black on white", Qt::white, Qt::white, Qt::black},
                      {"yellow on blue", 0x000080, 0x000060, Qt::yellow},
                      {"light fields in a dark window", 0x303030, Qt::white, Qt::black},
                      {"faint", 0xd8d8d8, 0xf0f0f0, 0x505050}};

QPalette paletteOf(const Look &look)
{
    QPalette palette(look.window);
    palette.setColor(QPalette::Window, look.window);
    palette.setColor(QPalette::Base, look.base);
    palette.setColor(QPalette::Text, look.text);
    palette.setColor(QPalette::Highlight, 0x3daee9);
    return palette;
}

double brightness(const QColor &colour)
{
    const auto part = [](int value) {
        const double share = value / 255.0;
        return share <= 0.04045 ? share / 12.92 : std::pow((share + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * part(colour.red()) + 0.7152 * part(colour.green()) + 0.0722 * part(colour.blue()) + 0.05;
}

bool isReadable(const QColor &text, const QColor &ground)
{
    const double ratio = brightness(text) / brightness(ground);
    return qMax(ratio, 1 / ratio) >= 4.5;
}

} // namespace

TEST(Colours, JudgementsAndWhatIsPalerCanBeReadOnEveryGround)
{
    for (const Look &look : looks) {
        QPalette palette = paletteOf(look);
        palette.setColor(QPalette::WindowText, brightness(look.window) > 0.2 ? Qt::black : Qt::white);
        for (const auto ground : {QPalette::Window, QPalette::Base}) {
            const auto text = ground == QPalette::Base ? QPalette::Text : QPalette::WindowText;
            const QColor back = palette.color(ground);
            const QColor red = validationColour(palette, Colour::Red, ground);
            EXPECT_TRUE(isReadable(red, back)) << look.name << red.name() << back.name();
            EXPECT_NE(red, palette.color(text)) << look.name;
            EXPECT_EQ(validationColour(palette, Colour::Black, ground), palette.color(text)) << look.name;
            const QColor paler = mutedColour(palette, text, ground);
            EXPECT_TRUE(isReadable(paler, back)) << look.name << paler.name() << back.name();
        }
    }
    QPalette grey(Qt::gray);
    grey.setColor(QPalette::Window, 0x777777);
    EXPECT_EQ(validationColour(grey, Colour::Red), grey.color(QPalette::WindowText)) << "no red can be read";
}

TEST(Colours, WhichTabIsOnShowAndWhereOneScrollsIsSeenOnEveryGround)
{
    /// The most that a pixel of @p widget stands out from what it was before @p change.
    const auto difference = [](QWidget &widget, const auto &change) {
        const QImage before = widget.grab().toImage();
        change();
        const QImage after = widget.grab().toImage();
        double most = 1;
        for (int at = 0; at < before.width() * before.height(); ++at) {
            const QPoint place(at % before.width(), at / before.width());
            const double ratio = brightness(before.pixelColor(place)) / brightness(after.pixelColor(place));
            most = qMax(most, qMax(ratio, 1 / ratio));
        }
        return most;
    };
    static constexpr double seen = 1.5; // The style alone comes to 1.26 on black.
    for (const Look &look : looks) {
        QTabBar tabs;
        QScrollBar bar(Qt::Vertical);
        bar.resize(bar.sizeHint().width(), 200);
        for (QWidget *widget : {static_cast<QWidget *>(&tabs), static_cast<QWidget *>(&bar)})
            widget->setPalette(paletteOf(look));
        tabs.addTab({});
        tabs.addTab({});
        EXPECT_GE(difference(tabs, [&] { tabs.setCurrentIndex(1); }), seen) << look.name;
        EXPECT_GE(difference(bar, [&] { bar.setValue(bar.maximum()); }), seen) << look.name;
    }
}

/// The program as somebody has it who does not see its colours, or hears what it says.
class ReadabilityTest : public MainWindowTest
{
protected:
    void TearDown() override
    {
        QLocale::setDefault(QLocale::c());
        MainWindowTest::TearDown();
    }
    static QString cell(const QString &table, int row, int column)
    {
        return visible<QTableView>(table)->model()->index(row, column).data().toString();
    }
};

TEST_F(ReadabilityTest, WhatChangesByItselfIsSaidAndTypingIsNotInterrupted)
{
    drop({padFile(u"A"_s)});
    answerAlert(u"OK"_s);
    clickTitle(0);
    command(u"Edit"_s)->trigger();
    auto *field = visible<QLineEdit>(u"companyName"_s);
    auto *caption = visible<QLabel>(u"companyNameLabel"_s);
    const QString errors = u"%1 errors in the PAD file."_s;
    const Listener listener;
    const QStringList &said = listener.said;
    window().activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&window()));
    field->setFocus();
    const auto count = [] { return ErrorTracking::returnErrorDictionary().valueOr({}).size(); };
    const size_t before = count();
    for (const QChar letter : u"Acme"_s) {
        QTest::keyClick(field, letter.toLatin1());
        QTest::qWait(20);
    }
    EXPECT_EQ(said, QStringList()) << "not while keys come";
    EXPECT_FALSE(caption->font().bold());
    ASSERT_TRUE(eventually([&] { return !said.isEmpty(); }));
    EXPECT_EQ(said, QStringList{errors.arg(before - 1)});
    field->selectAll();
    QTest::keyClick(field, Qt::Key_Delete);
    EXPECT_TRUE(caption->font().bold()) << "its colour is not the only sign";
    ASSERT_TRUE(eventually([&] { return said.size() == 2; }));
    EXPECT_EQ(said.last(), u"The company name is too short. "_s + errors.arg(before));
    EXPECT_EQ(QApplication::focusWidget(), field);

    command(u"history"_s)->trigger();
    press(u"restoreTitle"_s);
    EXPECT_EQ(said.last(), u"The title is as it was then."_s);
}

TEST_F(ReadabilityTest, DatesAndNumbersAreThoseOfTheUsersLocaleAndNeverStored)
{
    struct Row
    {
        QLocale locale;
        QString date;
        QString errors;
        QString page;
        QString apply;
    };
    const Row rows[] = {
        {QLocale(u"de_DE"_s), u"14.05.26"_s, u"(3)"_s, u"3 errors on this page"_s, u"Appl&y to 2 Titles"_s},
        {QLocale(u"ar_EG"_s), u"١٤‏/٥‏/٢٠٢٦"_s, u"(٣)"_s, u"٣ errors on this page"_s,
         u"Appl&y to ٢ Titles"_s}};
    drop({padFile(u"Zebra"_s)});
    answerAlert(u"OK"_s);
    command(u"tryExample"_s)->trigger();
    ASSERT_TRUE(eventually([&] { return titles().size() == 2; }));
    command(u"Overview"_s)->trigger();
    for (const Row &row : rows) {
        QLocale::setDefault(row.locale);
        start();
        EXPECT_EQ(cell(u"softwareTableView"_s, 0, 2), row.date);
        clickTitle(0);
        command(u"newRelease"_s)->trigger();
        type(u"releaseVersion"_s, u"9"_s);
        EXPECT_EQ(visible<QDateEdit>(u"releaseDate"_s)->date(), QDate::currentDate());
        visible<QTableView>(u"plannedTitles"_s)
            ->model()
            ->setData(visible<QTableView>(u"plannedTitles"_s)->model()->index(1, 0), Qt::Checked,
                      Qt::CheckStateRole);
        auto *apply = visible<QPushButton>(u"applyPlan"_s);
        ASSERT_TRUE(eventually([&] { return apply->isEnabled(); }));
        EXPECT_EQ(apply->text(), row.apply);
        press(u"closePlan"_s);
        command(u"preferences"_s)->trigger();
        EXPECT_NE(visible<QWidget>(u"prefsWindow"_s)->findChildren<QLabel *>().size(), 0);
        QStringList captions;
        for (const QLabel *label : visible<QWidget>(u"prefsWindow"_s)->findChildren<QLabel *>())
            captions.append(label->text());
        const QString sites = row.locale.toString(qsizetype(mwqnDefaultSitesDict.size()));
        EXPECT_TRUE(captions.contains(u"&Sites (%1)"_s.arg(sites))) << captions.join(u'|');
        press(u"closeButton"_s);
    }
}

/// The same on a desktop where letters are twice as large.
class LargeLettersTest : public WindowWalkTest
{
protected:
    void prepare() override
    {
        QFont large = m_font;
        large.setPointSizeF(2 * large.pointSizeF());
        QApplication::setFont(large);
    }
    void TearDown() override
    {
        WindowWalkTest::TearDown();
        QApplication::setFont(m_font);
    }

private:
    const QFont m_font = QApplication::font();
};

TEST_F(LargeLettersTest, SheetsAndWindowsHaveRoomForThem)
{
    press(u"newSoftwareButton"_s);
    EXPECT_EQ(cutTexts(*visible<QWidget>(u"swNamePanel"_s)), QStringList());
    typeName(u"A title with quite a long name"_s);
    walkCommands(roomFaults);
}

TEST_F(LargeLettersTest, ViewsHaveRoomForThem)
{
    walkViews(roomFaults);
}

TEST_F(LargeLettersTest, TheSubmissionWindowHasRoomForThem)
{
    walkSubmission(roomFaults);
}
