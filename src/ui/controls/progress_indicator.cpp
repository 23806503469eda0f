#include "ui/controls/progress_indicator.h"

#include "ui/controls/accessible_progress.h"

#include <algorithm>

namespace sonavo {

ProgressIndicator::ProgressIndicator(QQuickItem *parent)
    : QQuickPaintedItem(parent)
{
    [[maybe_unused]] static const bool isInstalled = (AccessibleProgress::install(), true);
    setAntialiasing(true);
    connect(this, &ProgressIndicator::changed, this, [this] { update(); });
}

int ProgressIndicator::percentage() const
{
    return static_cast<int>(m_value * 100.0);
}

double ProgressIndicator::filledShare() const
{
    return std::clamp(m_value, minimumValue(), maximumValue());
}

} // namespace sonavo
