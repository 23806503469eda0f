#include "model/byte_count.h"

#include <gtest/gtest.h>

#include <utility>

namespace sonavo {
namespace {

TEST(FormattedByteCount, WritesBytesAsFileManagersDo)
{
    const std::pair<qint64, const char *> cases[] = {
        {0, "Zero KB"},
        {1, "1 byte"},
        {1'500, "2 KB"},
        {84'300'000, "84.3 MB"},
        {5'000'000, "5 MB"},
        {1'250'000'000, "1.25 GB"},
        {9'223'372'036'854'775'807, "9.22 EB"},
        // Where rounding reaches the next unit.
        {999'499, "999 KB"},
        {999'500, "1 MB"},
        {999'994'999'999, "999.99 GB"},
        {999'995'000'000, "1 TB"},
    };
    for (const auto &[bytes, text] : cases)
        EXPECT_EQ(formattedByteCount(bytes).toStdString(), text);
}

} // namespace
} // namespace sonavo
