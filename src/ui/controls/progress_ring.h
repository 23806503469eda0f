#pragma once

#include "ui/controls/progress_indicator.h"

namespace sonavo {

/// A ring that fills clockwise from the top, in a gradient of three colours around its centre.
class ProgressRing : public sonavo::ProgressIndicator // in full for Qt's tools for QML
{
    Q_OBJECT
    QML_ELEMENT
    /// Clockwise rotation of the gradient in degrees.
    Q_PROPERTY(double gradientRotation MEMBER m_gradientRotation NOTIFY changed)
    /// Width of the ring in logical pixels.
    Q_PROPERTY(double lineWidth MEMBER m_lineWidth NOTIFY changed)
    /// Colour of the thin edge of the filled part, whose own colours can be as dark or as light as what is
    /// around.
    Q_PROPERTY(QColor edgeColor MEMBER m_edgeColor NOTIFY changed)

public:
    using ProgressIndicator::ProgressIndicator;

    void paint(QPainter *painter) override;

private:
    double m_gradientRotation = 0.0;
    double m_lineWidth = 15.0;
    QColor m_edgeColor = Qt::transparent;
};

} // namespace sonavo
