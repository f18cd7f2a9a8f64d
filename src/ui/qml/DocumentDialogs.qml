// SPDX-License-Identifier: MIT
pragma ComponentBehavior: Bound
import QtQuick
import QtQuick.Dialogs
import Zelvo.Documents as Documents

// The desktop's dialogs for documents. Each is made when it is first asked for.
Item {
    id: root

    required property Documents.DocumentController controller

    Loader {
        id: opening

        active: false
        sourceComponent: FileDialog {
            title: qsTr("Open a Document")
            nameFilters: [qsTr("Zelvo documents (*.zelvo *.json)"), qsTr("All files (*)")]
            onAccepted: root.controller.openPicked(selectedFile)
        }
    }
    Loader {
        id: saving

        active: false
        sourceComponent: FileDialog {
            title: qsTr("Save the Document")
            fileMode: FileDialog.SaveFile
            defaultSuffix: "zelvo"
            nameFilters: [qsTr("Zelvo documents (*.zelvo)")]
            onAccepted: root.controller.savePicked(selectedFile)
            onRejected: root.controller.dialogCancelled()
        }
    }
    Loader {
        id: collecting

        active: false
        sourceComponent: FolderDialog {
            title: qsTr("Collect Media: choose where the folder goes")
            onAccepted: root.controller.collectPicked(selectedFolder)
        }
    }
    Connections {
        target: root.controller

        function onOpenAsked(folder: url): void {
            opening.active = true;
            const dialog = opening.item as FileDialog;
            dialog.currentFolder = folder;
            dialog.open();
        }
        function onSaveAsked(suggestion: url): void {
            saving.active = true;
            const dialog = saving.item as FileDialog;
            dialog.currentFolder = String(suggestion).replace(/[^/]*$/, "");
            dialog.selectedFile = suggestion;
            dialog.open();
        }
        function onCollectAsked(folder: url): void {
            collecting.active = true;
            const dialog = collecting.item as FolderDialog;
            dialog.currentFolder = folder;
            dialog.open();
        }
    }
}
