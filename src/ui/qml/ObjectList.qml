// SPDX-License-Identifier: MIT
pragma ComponentBehavior: Bound
import QtQuick
import Zelvo
import Zelvo.Imports as Imports

// The list of imported objects and their parts.
FocusScope {
    id: root

    required property Imports.ObjectController controller

    Keys.forwardTo: [list] // so that keys also work after a click outside the list

    ScreenBar {
        id: bar

        width: parent.width
        title: qsTr("Imported Objects")

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
                        dialog.setSource("ImportDialog.qml", { title: qsTr("Import Objects"), takesMany: true });
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
        Accessible.name: bar.title

        // A held key acts only once: a deleted file cannot be restored.
        Keys.onPressed: event => {
            const actions = {
                [Qt.Key_Delete]: row => root.controller.deleteRow(row),
                [Qt.Key_Backspace]: row => root.controller.deleteRow(row),
                [Qt.Key_F2]: row => root.controller.renameRow(row),
                [Qt.Key_Right]: row => root.controller.infoAboutObjectFile(row),
                [Qt.Key_Return]: row => root.controller.pickRow(row),
                [Qt.Key_Enter]: row => root.controller.pickRow(row)
            };
            const action = actions[event.key];
            event.accepted = action !== undefined;
            if (event.accepted && !event.isAutoRepeat)
                action(currentIndex);
        }
        onMovementStarted: openRow = -1
        onCurrentIndexChanged: root.controller.currentRow = currentIndex

        delegate: ObjectImportRow {
            required property int index

            width: ListView.view.width
            height: root.controller.cellHeight
            isCurrent: ListView.isCurrentItem && root.activeFocus
            isOpen: list.openRow === index
            onPicked: list.currentIndex = index
            onTapped: root.controller.pickRow(index)
            onOpened: list.openRow = index
            onClosed: if (list.openRow === index) list.openRow = -1
            onInfoAsked: root.controller.infoAboutObjectFile(index)
            onSecondChosen: {
                list.openRow = -1;
                root.controller.renameRow(index);
            }
            onDeleted: {
                list.openRow = -1;
                root.controller.deleteRow(index);
            }
        }
    }
    Column {
        anchors.centerIn: parent
        width: parent.width - 48
        visible: list.count === 0
        spacing: 6

        Text {
            width: parent.width
            horizontalAlignment: Text.AlignHCenter
            text: qsTr("No imported objects")
            color: Theme.text
            font.pixelSize: Theme.px(14)
            font.weight: Font.Medium
        }
        Text {
            width: parent.width
            horizontalAlignment: Text.AlignHCenter
            wrapMode: Text.Wrap
            text: qsTr("Press “Import”, or drop a USDZ, OBJ, glTF or STL file here, a folder, or a ZIP archive.")
            color: Theme.mutedText
            font.pixelSize: Theme.px(13)
        }
    }
    Connections {
        target: root.controller

        function onCurrentRowChanged(): void {
            list.currentIndex = root.controller.currentRow;
        }
    }
    Loader {
        id: dialog
    }
    Connections {
        target: dialog.item

        function onAccepted(): void {
            root.controller.importFrom((dialog.item as ImportDialog).selectedFiles);
        }
    }
}
