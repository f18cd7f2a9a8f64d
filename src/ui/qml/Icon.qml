// SPDX-License-Identifier: MIT
import QtQuick

// A picture of the icon family by its name, sharp at any scale of the display.
Image {
    property string name
    source: name === "" ? "" : "qrc:/zelvo/icons/" + name + ".svg"
    sourceSize: Qt.size(width, height)
    fillMode: Image.PreserveAspectFit
}
