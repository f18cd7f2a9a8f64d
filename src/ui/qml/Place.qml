// SPDX-License-Identifier: MIT
import QtQuick

// Holds the view of whatever controller stands in it at the moment.
Loader {
    id: root

    property QtObject controller
    property string view

    function fill(): void {
        if (controller && view !== "")
            setSource(view + ".qml", { controller: controller });
        else
            source = "";
    }

    onControllerChanged: Qt.callLater(fill)
    Component.onCompleted: fill()
}
