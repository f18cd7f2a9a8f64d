// SPDX-License-Identifier: MIT
pragma ComponentBehavior: Bound
import QtQuick
import Zelvo
import Zelvo.Imports as Imports

// View of an ObjectInfoController: the object turns, and the report is below it.
FocusScope {
    id: root

    required property Imports.ObjectInfoController controller

    signal popped

    focus: true
    Keys.onEscapePressed: popped()
    Keys.onLeftPressed: popped()
    Keys.onUpPressed: report.flick(0, 600)
    Keys.onDownPressed: report.flick(0, -600)
    Accessible.role: Accessible.Pane
    Accessible.name: controller.title

    Rectangle {
        anchors.fill: parent
        color: Theme.row
    }
    MouseArea { // keeps the mouse away from the list below
        anchors.fill: parent
        hoverEnabled: true
        onWheel: wheel => wheel.accepted = true
    }
    ScreenBar {
        id: bar

        width: parent.width
        title: root.controller.title

        leading: ScreenButton {
            image: "LargeLayoutBackButton"
            name: qsTr("Back")
            key: "Esc"
            onClicked: root.popped()
        }
    }
    Rectangle {
        anchors.top: bar.bottom
        width: parent.width
        height: 1
        color: Theme.separator
    }
    Imports.SceneViewItem {
        id: scene

        anchors.top: bar.bottom
        anchors.topMargin: 1
        width: parent.width
        height: (parent.height - bar.height) * 0.58
        controller: root.controller.sceneView
        Accessible.role: Accessible.Graphic
        Accessible.name: root.controller.title
        Component.onCompleted: root.controller.sceneView.setBackground(Theme.row)

        DragHandler {
            property real beforeX
            property real beforeY

            target: null
            onActiveChanged: {
                beforeX = 0;
                beforeY = 0;
            }
            onTranslationChanged: {
                const x = activeTranslation.x;
                const y = activeTranslation.y;
                if (active)
                    root.controller.sceneView.orbit((x - beforeX) / scene.width, (y - beforeY) / scene.height);
                beforeX = x;
                beforeY = y;
            }
        }
        PinchHandler {
            property real before: 1

            target: null
            onActiveChanged: before = 1
            onUpdated: {
                if (active)
                    root.controller.sceneView.zoom(activeScale / before);
                before = activeScale;
            }
        }
        WheelHandler {
            acceptedDevices: PointerDevice.Mouse | PointerDevice.TouchPad
            onWheel: event => root.controller.sceneView.zoom(Math.pow(1.0015, event.angleDelta.y))
        }
        TapHandler {
            onSingleTapped: point => root.controller.sceneView.tap(point.position, Qt.size(scene.width, scene.height))
            onDoubleTapped: root.controller.sceneView.resetCamera()
        }
        Text {
            anchors.centerIn: parent
            width: parent.width - 48
            horizontalAlignment: Text.AlignHCenter
            wrapMode: Text.Wrap
            textFormat: Text.PlainText
            text: root.controller.word
            color: Theme.mutedText
            font.pixelSize: Theme.px(14)
        }
    }
    Rectangle {
        anchors.top: scene.bottom
        width: parent.width
        height: 1
        color: Theme.separator
    }
    ListView {
        id: report

        anchors.top: scene.bottom
        anchors.topMargin: 1
        anchors.bottom: parent.bottom
        anchors.left: parent.left
        anchors.right: parent.right
        anchors.leftMargin: 18
        anchors.rightMargin: 18
        clip: true
        topMargin: 14
        bottomMargin: 14
        model: root.controller.report
        boundsBehavior: Flickable.StopAtBounds

        delegate: ReportRow {
            width: ListView.view.width
        }
    }
}
