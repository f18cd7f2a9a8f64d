// SPDX-License-Identifier: MIT
import QtQuick

// An icon by its name. It is sharp at any scale of the display.
Image {
    property string name
    source: name === "" ? "" : "icons/" + name + ".svg"
    sourceSize.width: width
    sourceSize.height: height
    fillMode: Image.PreserveAspectFit
}
