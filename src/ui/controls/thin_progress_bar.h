#pragma once

#include "ui/controls/progress_indicator.h"

namespace sonavo {

/// A horizontal bar with round ends that fills from the left.
class ThinProgressBar : public sonavo::ProgressIndicator // in full for Qt's tools for QML
{
    Q_OBJECT
    QML_ELEMENT
    Q_PROPERTY(QColor color MEMBER m_color NOTIFY changed)

public:
    using ProgressIndicator::ProgressIndicator;

    void paint(QPainter *painter) override;

private:
    QColor m_color = Qt::black;
};

} // namespace sonavo
