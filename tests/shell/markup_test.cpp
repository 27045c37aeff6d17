#include "changes/history_window.h"
#include "findings/rule_packs_window.h"
#include "shell/window_walk.h"
#include "support/markup.h"

/// Names of strangers are plain text in every window.
class MarkupTest : public WindowWalkTest
{
protected:
    void prepare() override { name = markup; }
};

TEST_F(MarkupTest, IsNoneInTheMainWindowAndItsViews)
{
    walkViews(markupFaults);
}

TEST_F(MarkupTest, IsNoneInEveryWindowThatACommandOpens)
{
    walkCommands(markupFaults);
}

TEST_F(MarkupTest, IsNoneInTheSubmissionWindowBeforePagesCome)
{
    walkSubmission(markupFaults);
}

TEST_F(MarkupTest, IsNoneInWindowsThatNameValuesAndFiles)
{
    drop({padFile(name)});
    answerAlert(Alert().defaultButton);
    clickTitle(0);
    command(u"Edit"_s)->trigger();
    type(u"companyName"_s, markup);
    command(u"history"_s)->trigger();
    auto *history = openWindow<HistoryWindow>();
    ASSERT_TRUE(history);
    EXPECT_TRUE(history->windowTitle().contains(markup));
    EXPECT_EQ(markupFaults(*history), QStringList());
    history->close();

    const QString pack = home() + u'/' + markup + u".json"_s;
    ASSERT_TRUE(put(pack, "no pack"));
    command(u"rulePacks"_s)->trigger();
    auto *packs = openWindow<RulePacksWindow>();
    ASSERT_TRUE(packs);
    packs->add(pack);
    EXPECT_TRUE(visible<QLabel>(u"rulePacksOutcome"_s)->text().contains(markup));
    EXPECT_EQ(markupFaults(*packs), QStringList());
}

TEST_F(MarkupTest, IsNoneInWhatAFileDialogAsks)
{
    drop({padFile(name)});
    answerAlert(Alert().defaultButton);
    clickTitle(0);
    QStringList asked;
    QTimer author; // The toolkit's question has an event loop of its own.
    QObject::connect(&author, &QTimer::timeout, &author, [&asked] {
        if (auto *question = openWindow<QMessageBox>()) {
            asked = markupFaults(*question) + QStringList{question->text()};
            question->reject();
        }
    });
    author.start(5);
    command(u"export"_s)->trigger();
    enterPath(home() + u'/' + markup + u".xml"_s);
    ASSERT_TRUE(eventually([&asked] { return !asked.isEmpty(); }));
    EXPECT_EQ(asked.size(), 1) << asked.join(u'\n');
    EXPECT_TRUE(asked.last().contains(markup + u".xml"_s)) << asked.last();
    openWindow<QFileDialog>()->reject();
}
