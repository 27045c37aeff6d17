#include "support/own_home.h"
#include "widgets/outlined_style.h"

#include <QApplication>

#include <gtest/gtest.h>

/// Tests of windows run inside an application.
int main(int argc, char *argv[])
{
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    testing::InitGoogleTest(&argc, argv);
    const quillon::OwnHome home;
    QApplication application(argc, argv);
    QApplication::setQuitOnLastWindowClosed(false);
    quillon::OutlinedStyle::install();
    return RUN_ALL_TESTS();
}
