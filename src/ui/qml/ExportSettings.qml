// SPDX-License-Identifier: MIT
pragma ComponentBehavior: Bound
import QtQuick
import QtQuick.Dialogs
import QtQuick.Layouts
import Zelvo
import Zelvo.Screens as Screens

// View of an ExportSettingsController: the sheet before an export.
Sheet {
    id: root

    required property Screens.ExportSettingsController controller

    focus: true
    sheetWidth: 680
    sheetHeight: 556
    Accessible.name: bar.title
    onClosed: controller.cancel()
    Keys.onReturnPressed: controller.start()
    Keys.onEnterPressed: controller.start()

    ScreenBar {
        id: bar

        width: parent.width
        title: qsTr("Export")

        leading: ScreenButton {
            text: qsTr("Cancel")
            key: "Esc"
            fill: Theme.separator
            onClicked: root.controller.cancel()
        }
        trailing: ScreenButton {
            text: qsTr("Export")
            key: qsTr("Return")
            fill: Theme.accent
            isUsable: root.controller.canStart
            onClicked: root.controller.start()
        }
    }
    Flickable {
        anchors.top: bar.bottom
        anchors.bottom: remark.top
        anchors.bottomMargin: 4
        width: parent.width
        contentHeight: form.height + 2 * form.y
        boundsBehavior: Flickable.StopAtBounds
        clip: true

        GridLayout {
            id: form

            x: 20
            y: 4 // for the ring around the row with the focus
            width: parent.width - 40
            columns: 2
            columnSpacing: 16
            rowSpacing: 8

            component Label: Text {
                color: Theme.text
                font.pixelSize: Theme.px(14)
                Layout.minimumWidth: Theme.px(104)
            }

            Label {
                text: qsTr("Format")
            }
            ChoiceRow {
                Layout.fillWidth: true
                name: qsTr("Format")
                choices: root.controller.formats
                chosen: root.controller.format
                focus: true
                onAsked: index => root.controller.format = index
            }
            Label {
                text: qsTr("Size")
            }
            ChoiceRow {
                Layout.fillWidth: true
                name: qsTr("Size")
                choices: root.controller.sizes
                chosen: root.controller.size
                onAsked: index => root.controller.size = index
            }
            Label {
                visible: root.controller.hasOwnSize
                text: qsTr("Width x height")
            }
            EntryField {
                Layout.fillWidth: true
                visible: root.controller.hasOwnSize
                name: qsTr("Width x height")
                text: root.controller.ownSize
                onTextEdited: root.controller.ownSize = text
            }
            Label {
                text: qsTr("Quality")
            }
            ChoiceRow {
                Layout.fillWidth: true
                name: qsTr("Quality")
                choices: root.controller.qualities
                chosen: root.controller.quality
                onAsked: index => root.controller.quality = index
            }
            Label {
                text: qsTr("Motion blur")
            }
            ChoiceRow {
                Layout.fillWidth: true
                name: qsTr("Motion blur")
                choices: root.controller.motionBlurs
                chosen: root.controller.motionBlur
                onAsked: index => root.controller.motionBlur = index
            }
            Label {
                text: qsTr("Background")
                opacity: root.controller.canHaveAlpha ? 1 : Theme.dimmed
            }
            ChoiceRow {
                Layout.fillWidth: true
                name: qsTr("Background")
                choices: root.controller.backgrounds
                chosen: root.controller.background
                isUsable: root.controller.canHaveAlpha
                onAsked: index => root.controller.background = index
            }
            Label {
                text: qsTr("Name")
            }
            EntryField {
                Layout.fillWidth: true
                name: qsTr("Name")
                text: root.controller.name
                onTextEdited: root.controller.name = text
            }
            Label {
                text: qsTr("Folder")
            }
            RowLayout {
                Layout.fillWidth: true
                spacing: 8

                Text {
                    Layout.fillWidth: true
                    text: root.controller.folder
                    color: Theme.text
                    font.pixelSize: Theme.px(14)
                    elide: Text.ElideMiddle
                    Accessible.role: Accessible.StaticText
                    Accessible.name: text
                }
                ScreenButton {
                    text: qsTr("Choose…")
                    fill: Theme.separator
                    onClicked: dialog.open()
                }
            }
        }
    }
    Text {
        id: remark

        anchors.bottom: parent.bottom
        x: 20
        width: parent.width - 40
        height: Theme.px(28)
        text: root.controller.remark
        color: root.controller.canStart ? Qt.lighter(Theme.mutedText, 1.35) : Theme.hint
        font.pixelSize: Theme.px(13)
        fontSizeMode: Text.HorizontalFit
        minimumPixelSize: Theme.px(10)
        elide: Text.ElideMiddle
        verticalAlignment: Text.AlignVCenter
        horizontalAlignment: Text.AlignHCenter
        Accessible.role: Accessible.StaticText
        Accessible.name: text
    }
    FolderDialog {
        id: dialog

        title: qsTr("Choose the folder of the movie")
        currentFolder: root.controller.folderUrl
        onAccepted: root.controller.setFolder(selectedFolder)
    }
}
