#include "controls/controls.h"
#include "support/testing.h"

#include <functional>
#include <random>

TEST(ControlsTest, TellOfChangesAndOfNothingElse)
{
    TextControl text(u"t"_s);
    PopUpControl popUp(u"p"_s);
    CheckBoxControl box(u"b"_s);
    CheckListControl list(u"l"_s);
    popUp.setItems({u""_s, u"one"_s});
    list.setEntries({u"a"_s, u"b"_s});
    list.shareCaption(text);
    int changes = 0;
    for (const Control *control : std::initializer_list<Control *>{&text, &popUp, &box, &list})
        QObject::connect(control, &Control::changed, [&changes] { ++changes; });
    QObject::connect(&text.caption(), &Caption::changed, [&changes] { ++changes; });
    const std::function<void()> steps[] = {[&] { text.setText(u"x"_s); },
                                           [&] { text.setHint(u"h"_s); },
                                           [&] { text.setHintColour(Colour::Red); },
                                           [&] { list.caption().setColour(Colour::Red); },
                                           [&] { text.setWholeTextColour(Colour::Red); },
                                           [&] { text.setText(u"xy"_s); },
                                           [&] { text.setTextColour(1, 9, Colour::Red); },
                                           [&] { popUp.setTitle(u"one"_s); },
                                           [&] { popUp.setTitle(u"two"_s); },
                                           [&] { box.setOn(true); },
                                           [&] { list.setTicked(1, true); },
                                           [&] { list.untickAll(); }};
    int expected = 0;
    for (const auto &step : steps) {
        step();
        step(); // The second time nothing is new.
        EXPECT_EQ(changes, ++expected);
    }
}

TEST(ControlsTest, RedRunsAreWhatColouringUnitByUnitWouldGive)
{
    std::mt19937 random(11);
    const auto between = [&random](int least, int most) {
        return least + int(random() % unsigned(most - least + 1));
    };
    for (int round = 0; round < 300; ++round) {
        TextControl control(u"t"_s);
        QString expected(between(0, 12), u'-');
        control.setText(expected);
        for (int step = 0; step < 8; ++step) {
            const int start = between(-3, 15);
            const int length = between(-2, 16);
            const bool red = between(0, 2) > 0;
            control.setTextColour(start, length, red ? Colour::Red : Colour::Black);
            for (int at = std::max(start, 0); at < std::min(start + length, int(expected.size())); ++at)
                expected[at] = red ? u'R' : u'-';

            QString shown(expected.size(), u'-');
            for (const ColourRun &run : control.redRuns())
                shown.replace(run.start, run.length, QString(run.length, u'R'));
            ASSERT_EQ(shown, expected) << "round " << round << " step " << step;
            ASSERT_EQ(control.redRuns().size(), expected.split(u'-', Qt::SkipEmptyParts).size());
        }
    }
}

TEST(ControlsTest, ListsChooseAndTickWhatExists)
{
    PopUpControl popUp(u"p"_s);
    popUp.setItems({u""_s, u"Days"_s, u"days"_s});
    for (const auto &[title, index] :
         {std::pair(u"days"_s, 2), {u"DAYS"_s, -1}, {u""_s, 0}, {u"Days"_s, 1}}) {
        popUp.setTitle(title);
        EXPECT_EQ(popUp.index(), index);
        EXPECT_EQ(popUp.isSet(), index > 0);
    }
    popUp.setIndex(3);
    EXPECT_EQ(popUp.title(), QString());
    CheckListControl list(u"l"_s);
    list.setEntries(words(u"a b c"_s));
    for (const int row : {-1, 2, 1, 0, 3, 1})
        list.toggle(row);
    EXPECT_EQ(list.tickedEntries(), words(u"a c"_s));
}
