#include "actions/click_to_seek.h"

#include <gtest/gtest.h>

#include <limits>

namespace sonavo {
namespace {

TEST(SeekTarget, IsTheWholeSecondThatTheClickStandsForInARowWithWidth)
{
    EXPECT_EQ(seekTarget(450, 900, 200.6), 100);
    EXPECT_EQ(seekTarget(1200, 900, 200.6), 200);
    EXPECT_EQ(seekTarget(-9, 900, 200.0), -2);
    EXPECT_EQ(seekTarget(450, 900, 0.0), 0);
    EXPECT_EQ(seekTarget(0, 0, 200.0), std::nullopt);
    EXPECT_EQ(seekTarget(std::numeric_limits<double>::quiet_NaN(), 900, 200.0), std::nullopt);
}

} // namespace
} // namespace sonavo
