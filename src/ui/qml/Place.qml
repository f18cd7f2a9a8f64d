// SPDX-License-Identifier: MIT
import QtQuick

// Shows the view of its current controller.
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
