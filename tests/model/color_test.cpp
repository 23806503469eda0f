#include "model/color.h"

#include <gtest/gtest.h>

#include <utility>

namespace sonavo {
namespace {

TEST(ColorFromHex, ReadsThreeSixOrEightDigitsAndGivesBlackForAnythingElse)
{
    const std::pair<QStringView, Color> cases[] = {
        {u"#08f", {0.0, 136 / 255.0, 1.0, 1.0}},
        {u"#C4704B", {196 / 255.0, 112 / 255.0, 75 / 255.0, 1.0}},
        {u"#80FF0000", {1.0, 0.0, 0.0, 128 / 255.0}},
        {u" #ff0000; ", {1.0, 0.0, 0.0, 1.0}},
        {u"#12345", {0.0, 0.0, 0.0, 1.0}},
        {u"#GGGGGG", {0.0, 0.0, 0.0, 1.0}},
    };
    for (const auto &[text, color] : cases)
        EXPECT_EQ(colorFromHex(text), color) << text.toString().toStdString();
}

} // namespace
} // namespace sonavo
