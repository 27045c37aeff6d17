#include "support/own_home.h"

#include <gtest/gtest.h>

/// Tests of logic run without an application; those that need one make it.
int main(int argc, char *argv[])
{
    testing::InitGoogleTest(&argc, argv);
    const quillon::OwnHome home;
    return RUN_ALL_TESTS();
}
