// SPDX-License-Identifier: MIT
import QtQuick

// An area full of controls, of which no tooltip may hide one.
Rectangle {
    property real reach // how far controls that belong to it stand out above it
}
