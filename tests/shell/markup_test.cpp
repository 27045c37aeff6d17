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
