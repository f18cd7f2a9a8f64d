// SPDX-License-Identifier: MIT
pragma ComponentBehavior: Bound
import QtQuick
import QtQuick.Dialogs
import Zelvo.Layouter as Layouter

// The dialog in which the user picks a picture. It is made when it is asked for.
Loader {
    id: root

    required property Layouter.LayouterMenu controller

    active: false
    sourceComponent: FileDialog {
        title: qsTr("Import a Picture")
        acceptLabel: qsTr("Import")
        nameFilters: root.controller.pictureFilters
        onAccepted: root.controller.pictureWasPicked(selectedFile)
    }

    Connections {
        target: root.controller

        function onPictureAsked(folder: url): void {
            root.active = true;
            const dialog = root.item as FileDialog;
            dialog.currentFolder = folder;
            dialog.open();
        }
    }
}
