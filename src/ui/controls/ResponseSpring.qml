import QtQuick

// A spring told by how fast it answers and how much it overshoots, instead of by its physics. For a mass of 1
// the damped harmonic oscillator has stiffness (2 pi / response)^2 and friction 4 pi dampingFraction / response
// (any textbook of mechanics; for instance French, "Vibrations and Waves", 1971, chapter 3). SpringAnimation
// takes both for each of its steps of 16 ms.
SpringAnimation {
    // Seconds of one swing if nothing damped it.
    property real response: 0.5
    // 1 comes to rest without overshooting, less swings beyond.
    property real dampingFraction: 0.8

    readonly property real step: 0.016
    readonly property real angularFrequency: 2 * Math.PI / response

    spring: angularFrequency * angularFrequency * step
    damping: 2 * dampingFraction * angularFrequency * step
    epsilon: 0.005
}
