// SPDX-License-Identifier: MIT
pragma ComponentBehavior: Bound
import QtQuick
import Zelvo
import Zelvo.Imports as Imports

// View of a FontImportViewController: a sheet over the stage.
Sheet {
    id: root

    required property Imports.FontImportViewController controller

    focus: true
    Keys.forwardTo: [list] // so that keys also work after a click outside the list
    Accessible.name: controller.title
    onClosed: controller.dismissViewController()

    ScreenBar {
        id: bar

        width: parent.width
        title: root.controller.title

        leading: ScreenButton {
            image: "CloseButton_Gray"
            name: qsTr("Close")
            key: "Esc"
            onClicked: root.controller.dismissViewController()
        }
        trailing: [
            ScreenButton {
                text: qsTr("Howto")
                tint: Theme.howto
                onClicked: root.controller.showHowto()
            },
            ScreenButton {
                text: qsTr("Import")
                onClicked: {
                    if (!dialog.item)
                        dialog.setSource("ImportDialog.qml", { title: qsTr("Import Fonts") });
                    (dialog.item as ImportDialog).ask(root.controller.nameFilters, root.controller.downloads);
                }
            }
        ]
    }
    Rectangle {
        anchors.top: bar.bottom
        width: parent.width
        height: 1
        color: Theme.separator
    }
    ListView {
        id: list

        property int openRow: -1

        anchors.fill: parent
        anchors.topMargin: bar.height + 1
        clip: true
        focus: true
        model: root.controller.rows
        activeFocusOnTab: true
        keyNavigationEnabled: true
        highlightMoveDuration: 0
        boundsBehavior: Flickable.StopAtBounds
        Accessible.role: Accessible.List
        Accessible.name: root.controller.title

        // A held key deletes only one row, because a deleted file cannot be restored.
        Keys.onPressed: event => {
            event.accepted = event.key === Qt.Key_Delete || event.key === Qt.Key_Backspace;
            if (!event.accepted || event.isAutoRepeat)
                return;
            const row = currentIndex;
            root.controller.deleteRow(row);
            currentIndex = Math.min(row, count - 1); // the list began at its first row again
        }
        Keys.onReturnPressed: root.controller.pickRow(currentIndex)
        Keys.onEnterPressed: root.controller.pickRow(currentIndex)
        onMovementStarted: openRow = -1

        delegate: FontImportRow {
            required property int index

            width: ListView.view.width
            height: root.controller.cellHeight
            pictures: root.controller.pictures
            fontFile: root.controller.fontFile(index)
            isCurrent: ListView.isCurrentItem && root.activeFocus
            isOpen: list.openRow === index
            onPicked: list.currentIndex = index
            onTapped: root.controller.pickRow(index)
            onOpened: list.openRow = index
            onClosed: if (list.openRow === index) list.openRow = -1
            onDeleted: {
                list.openRow = -1;
                root.controller.deleteRow(index);
            }
        }
    }
    Column {
        anchors.centerIn: parent
        visible: list.count === 0
        spacing: 6

        Text {
            anchors.horizontalCenter: parent.horizontalCenter
            text: qsTr("No imported fonts")
            color: Theme.text
            font.pixelSize: Theme.px(14)
            font.weight: Font.Medium
        }
        Text {
            anchors.horizontalCenter: parent.horizontalCenter
            text: qsTr("Press “Import”, or drop fonts or a ZIP archive here.")
            color: Theme.mutedText
            font.pixelSize: Theme.px(13)
        }
    }
    Loader {
        id: dialog
    }
    Connections {
        target: dialog.item

        function onAccepted(): void {
            root.controller.importFrom((dialog.item as ImportDialog).selectedFile);
        }
    }
}
