#include "session/notices.h"
#include "testing/test_pauses.h"

#include <QTest>

#include <gtest/gtest.h>

namespace sonavo {
namespace {

using namespace std::chrono_literals;
using namespace Qt::Literals::StringLiterals;

TEST(NoticesTest, HidesAToastWhenTheTimeOfTheFirstIsOver)
{
    const auto pauses = std::make_shared<HeldPauses>();
    auto notices = std::make_unique<Notices>(pauses);
    notices->showToast(u"first"_s, Notices::ToastType::Success);
    notices->showToast(u"second"_s, Notices::ToastType::Error);
    EXPECT_TRUE(notices->state().isToastShown);
    ASSERT_EQ(pauses->count(), 2U);
    EXPECT_EQ(pauses->lengthOf(0), 3s);

    pauses->end(0);
    EXPECT_TRUE(QTest::qWaitFor([&notices] { return !notices->state().isToastShown; }));
    EXPECT_EQ(notices->state().toastMessage, u"second"_s);
    EXPECT_EQ(notices->state().toastType, Notices::ToastType::Error);
    // The second timer runs out when the notices are gone.
    notices.reset();
    pauses->end(1);
    QTest::qWait(20);
}

TEST(NoticesTest, KeepsAToastWithAButtonForItsTimeAndAsLongAsItIsHeld)
{
    const auto pauses = std::make_shared<HeldPauses>();
    Notices notices(pauses);
    const auto endPause = [&](std::size_t pause) {
        pauses->end(pause);
        QTest::qWait(20);
        return notices.state().isToastShown;
    };
    notices.showToast(u"without"_s, Notices::ToastType::Info);
    notices.showToast(u"first"_s, Notices::ToastType::Success, u"Undo"_s);
    notices.showToast(u"second"_s, Notices::ToastType::Success, u"Undo"_s);
    EXPECT_EQ(pauses->lengthOf(2), 8s);
    EXPECT_TRUE(endPause(0));
    EXPECT_TRUE(endPause(1));
    notices.holdToast(true);
    EXPECT_TRUE(endPause(2));
    notices.holdToast(false);
    EXPECT_FALSE(notices.state().isToastShown);

    // Without its button it is like any other, and so is one that takes its place.
    notices.showToast(u"with"_s, Notices::ToastType::Success, u"Undo"_s);
    notices.showToast(u"third"_s, Notices::ToastType::Info);
    EXPECT_EQ(notices.state().toastAction, QString());
    EXPECT_TRUE(endPause(3));
    notices.showToast(u"last"_s, Notices::ToastType::Success, u"Undo"_s);
    notices.removeToastAction();
    EXPECT_FALSE(endPause(4));
}

} // namespace
} // namespace sonavo
