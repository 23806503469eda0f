#pragma once

#include "session/duplicate_view_model.h"

#include <QTest>

#include <gtest/gtest.h>

namespace sonavo {

/// Lets the event loop do what is waiting in it.
inline void settle()
{
    QTest::qWait(20);
}

/// Runs the event loop until the scan is over and everything that it still does afterwards is done.
inline void finishScan(const DuplicateViewModel &session)
{
    ASSERT_TRUE(QTest::qWaitFor([&session] { return !session.isScanning(); }, 20'000));
    settle();
}

} // namespace sonavo
