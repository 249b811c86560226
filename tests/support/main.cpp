#include <QCoreApplication>

#include <gtest/gtest.h>

#include <cstdlib>

int main(int argc, char **argv)
{
    setenv("LC_ALL", "C.UTF-8", 1); // the simulated phone speaks the language of its user
    testing::InitGoogleTest(&argc, argv);
    const QCoreApplication application(argc, argv);
    return RUN_ALL_TESTS();
}
