// SPDX-License-Identifier: MIT
import QtQuick

// An area full of controls. Tooltips stay outside of it, so that they hide none of the controls.
Rectangle {
    property real reach // height of controls that belong to the bar but are above it
}
