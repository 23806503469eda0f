#pragma once

#include "actions/desktop.h"

namespace sonavo {

/// The desktop of a run in the terminal: there is nobody to choose anything.
class HeadlessDesktop final : public Desktop
{
public:
    [[nodiscard]] QList<QUrl> chooseMusic() override { return {}; }
};

} // namespace sonavo
