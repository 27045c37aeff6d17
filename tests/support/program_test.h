#pragma once

#include "platform/settings.h"
#include "support/gui.h"

#include <memory>

namespace quillon {

/// A test of a @p Program with windows, whose data and settings lie in the home folder of @p Home.
template<typename Program, typename Home>
class ProgramTest : public Home
{
protected:
    void SetUp() override
    {
        Home::SetUp();
        setSettingsHome(this->home());
        prepare();
        start();
    }
    void TearDown() override
    {
        m_program.reset();
        settings().sync(); // Else they would be written when their folder has gone.
        Home::TearDown();
    }

    /// What has to be there before the program.
    virtual void prepare() {}
    /// Ends the program if it runs, starts it anew and waits for its window.
    virtual void start()
    {
        m_program.reset();
        m_program = std::make_unique<Program>();
        ASSERT_TRUE(QTest::qWaitForWindowActive(m_program->shownWindow()));
    }
    Program &program() { return *m_program; }

private:
    std::unique_ptr<Program> m_program;
};

} // namespace quillon
