// SPDX-License-Identifier: MIT
import QtQuick

// A picture of the icon family by its name, sharp at any scale of the display.
Image {
    property string name
    source: name === "" ? "" : "icons/" + name + ".svg"
    sourceSize.width: width
    sourceSize.height: height
    fillMode: Image.PreserveAspectFit
}
