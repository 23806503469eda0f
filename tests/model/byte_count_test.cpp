#include "model/byte_count.h"

#include <gtest/gtest.h>

#include <limits>
#include <utility>

namespace sonavo {
namespace {

TEST(FormattedByteCount, WritesBytesAsFileManagersDo)
{
    const std::pair<qint64, const char *> cases[] = {
        {0, "Zero KB"},
        {1, "1 byte"},
        {999, "999 bytes"},
        {1'499, "1 KB"},
        {1'500, "2 KB"},
        {84'300'000, "84.3 MB"},
        {5'000'000, "5 MB"},
        {1'250'000'000, "1.25 GB"},
        {std::numeric_limits<qint64>::max(), "9.22 EB"},
        // On both sides of where a thousand would be printed.
        {999'499, "999 KB"},
        {999'500, "1 MB"},
        {999'949'999, "999.9 MB"},
        {999'950'000, "1 GB"},
        {999'994'999'999, "999.99 GB"},
        {999'995'000'000, "1 TB"},
    };
    for (const auto &[bytes, text] : cases)
        EXPECT_EQ(formattedByteCount(bytes).toStdString(), text);
}

} // namespace
} // namespace sonavo
