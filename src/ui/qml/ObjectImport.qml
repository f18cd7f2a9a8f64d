// SPDX-License-Identifier: MIT
pragma ComponentBehavior: Bound
import QtQuick
import Zelvo
import Zelvo.Imports as Imports

// View of an ObjectController: a sheet with the list of files, over which the page about an object
// comes from the right.
Sheet {
    id: root

    required property Imports.ObjectController controller

    focus: true
    sheetWidth: 640
    Accessible.name: qsTr("Imported Objects")
    onClosed: controller.dismissViewController()

    FocusStack {
        anchors.fill: parent
        focus: true

        ObjectList {
            id: list

            width: parent.width
            height: parent.height
            focus: true
            controller: root.controller
        }
        Loader {
            id: page

            readonly property Imports.ObjectInfoController info: root.controller.info

            width: parent.width
            height: parent.height
            visible: status === Loader.Ready
            x: visible ? 0 : width
            onInfoChanged: {
                if (info)
                    setSource("ObjectInfo.qml", { controller: info });
                else
                    source = "";
            }

            Behavior on x {
                NumberAnimation { duration: 180 * Theme.motion; easing.type: Easing.OutCubic }
            }
            Connections {
                target: page.item as ObjectInfo

                function onPopped(): void { root.controller.popInfo() }
            }
        }
    }
}
