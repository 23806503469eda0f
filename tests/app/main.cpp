#include "app/utf8_locale.h"

#include <QCoreApplication>

#include <gtest/gtest.h>

int main(int argc, char *argv[])
{
    sonavo::useUtf8Locale();
    testing::InitGoogleTest(&argc, argv);
    const QCoreApplication application(argc, argv);
    return RUN_ALL_TESTS();
}
