#include "session/clean_up_text.h"

#include <gtest/gtest.h>

namespace sonavo {
namespace {

using namespace std::chrono_literals;
using namespace Qt::Literals::StringLiterals;

TEST(CleanUpText, SaysWhatWasDoneAndWhatWasNot)
{
    const SongFailure failure;
    using enum CleanUpTarget;
    const struct
    {
        CleanUpSummary summary;
        QString toast, headline;
    } cases[] = {
        {{.target = Folder, .moved = 12, .saved = 84'300'000},
         u"Moved 12 files to folder \u2022 Saved 84.3 MB"_s,
         u"12 files moved to a folder \u2022 84.3 MB"_s},
        {{.target = Folder, .moved = 1'200, .notReached = 3, .failures = {failure}},
         u"Moved 1200 files \u2022 1 failed \u2022 3 not moved"_s,
         u"1,200 files moved to a folder \u2022 Zero KB"_s},
        {{.failures = {failure, failure}},
         u"Moved 0 files to Trash \u2022 2 failed"_s,
         u"No files were moved"_s},
    };
    for (const auto &[summary, toast, headline] : cases) {
        EXPECT_EQ(toastText(summary), toast);
        EXPECT_EQ(headlineOf(summary), headline);
    }
    const QString alert = undoAlertText(QList<SongFailure>(1'022, {{}, u"reason"_s}));
    EXPECT_EQ(alert.count(u"reason"_s), 10);
    EXPECT_TRUE(alert.endsWith(u"\nand 1,012 more"_s));
}

TEST(CleanUpText, EstimatesTheTimeOfLongJobsOnly)
{
    const struct
    {
        std::chrono::milliseconds elapsed;
        qint64 done, total;
        QString text;
    } cases[] = {
        {1'900ms, 1, 10'000, {}},
        {2s, 0, 100, {}},
        {4s, 9, 10, {}},
        {6s, 9, 10, u"A few seconds left"_s},
        {10s, 10, 42, u"About 40 seconds left"_s},
        {10s, 10, 70, u"About 1 minute left"_s},
        {10s, 10, 5'000, u"About 83 minutes left"_s},
        {10s, 10, 7'000, u"About 2 hours left"_s},
    };
    for (const auto &[elapsed, done, total, text] : cases)
        EXPECT_EQ(timeLeftText(elapsed, done, total), text);
}

} // namespace
} // namespace sonavo
