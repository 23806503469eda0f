import QtQuick

// A spring animation with a response time and a damping ratio for parameters. A damped harmonic oscillator of mass 1
// has the stiffness (2 pi / response)^2 and the damping coefficient 4 pi dampingFraction / response (for instance
// French, "Vibrations and Waves", 1971, chapter 3). SpringAnimation takes both per step of 16 ms.
SpringAnimation {
    // Period of the undamped oscillation in seconds.
    property real response: 0.5
    // Damping ratio: below 1 the spring overshoots.
    property real dampingFraction: 0.8

    readonly property real step: 0.016
    readonly property real angularFrequency: 2 * Math.PI / response

    spring: angularFrequency * angularFrequency * step
    damping: 2 * dampingFraction * angularFrequency * step
    epsilon: 0.005
}
