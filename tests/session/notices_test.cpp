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

} // namespace
} // namespace sonavo
