#include "language/language.h"

#include <QCoreApplication>

#include <gtest/gtest.h>

int main(int argc, char *argv[])
{
    testing::InitGoogleTest(&argc, argv);
    // Names of files are UTF-8 whatever the machine's locale.
    qputenv("LC_ALL", "C.UTF-8");
    qunsetenv("LANGUAGE");
    const QCoreApplication application(argc, argv);
    sonavo::useEnglish();
    return RUN_ALL_TESTS();
}
