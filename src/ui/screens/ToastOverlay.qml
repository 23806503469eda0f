import QtQuick
import Sonavo

// Slides the toast in from below and fades it out.
Item {
    id: overlay

    required property DuplicateViewModel viewModel
    readonly property bool isShowing: viewModel.showToast
    readonly property real hiddenOffset: Motion.isReduced ? 0 : 60
    // What the toast does not cover: it goes above it.
    required property rect keepClear
    readonly property bool isInTheWay: keepClear.height > 0 && keepClear.y < height - 40
                                       && keepClear.y + keepClear.height > height - 40 - toast.height
    readonly property real restMargin: isInTheWay ? height - keepClear.y + 8 : 40

    ToastView {
        id: toast

        property real offset: overlay.hiddenOffset

        anchors.horizontalCenter: parent.horizontalCenter
        anchors.bottom: parent.bottom
        anchors.bottomMargin: overlay.restMargin - offset
        message: overlay.viewModel.toastMessage
        type: overlay.viewModel.toastType
        opacity: 0
        visible: opacity > 0
        enabled: overlay.isShowing
        action: overlay.viewModel.toastAction
        // What was dropped can be scanned instead of what is being scanned.
        canAct: (!overlay.viewModel.isScanning || overlay.viewModel.scanAllText === action)
                && !overlay.viewModel.showCleanUpProgress
        onClosed: overlay.viewModel.showToast = false
        onActed: overlay.viewModel.performToastAction()
        onIsInUseChanged: overlay.viewModel.holdToast(isInUse)

        function announce() {
            if (overlay.isShowing)
                AccessibleAlert.raise(toast);
        }

        states: State {
            when: overlay.isShowing
            PropertyChanges {
                target: toast
                offset: 0
                opacity: 1
            }
        }
        transitions: [
            Transition {
                to: ""
                SequentialAnimation {
                    Fade {}
                    PropertyAction { property: "offset" }
                }
            },
            Transition {
                ResponseSpring {
                    property: "offset"
                    response: 0.5
                    dampingFraction: 0.8
                }
                Fade {}
            }
        ]
    }

    component Fade: NumberAnimation {
        property: "opacity"
        duration: 300
        easing.type: Easing.OutQuad
    }

    // The next toast can have the same text.
    readonly property int number: viewModel.toastNumber
    onNumberChanged: toast.announce()
    onIsShowingChanged: toast.announce()

    Shortcut {
        sequence: Shortcuts.keyOf(Shortcuts.Close)
        enabled: overlay.isShowing
        onActivated: overlay.viewModel.showToast = false
    }
}
