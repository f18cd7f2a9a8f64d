// SPDX-License-Identifier: MIT
pragma ComponentBehavior: Bound
import QtQuick
import Zelvo
import Zelvo.Layouter as Layouter

// View of a FontStrip. Only the entries in sight, and a few beside them, are built.
Item {
    id: root

    required property Layouter.FontStrip controller
    readonly property real reach: 200 // built beyond the edges of the strip
    property bool isReady: false
    property bool isPlaced: false // the entries have their places

    // From the font of the interface: a font that is not read yet has no width.
    function widthOf(title: string, isMarked: bool): real {
        return Math.max(64, Math.min(200, metrics.advanceWidth(title) + (isMarked ? 46 : 28)));
    }

    function place(): void {
        row.layOut();
        row.centre(false, null);
        isPlaced = true;
    }

    // What comes up over the panel gets the keys.
    onEnabledChanged: if (!enabled) controller.openList(false)
    Component.onCompleted: {
        isReady = true;
        place();
    }

    FontMetrics {
        id: metrics

        font.pixelSize: Theme.px(15)
    }
    MyButton {
        id: listButton

        width: 40
        height: row.entryHeight
        reach: 4
        horizontalInset: 8
        hasTip: !root.controller.isListOpen // it would hide a part of the list
        controller: root.controller.listButton
        Spoken.isExpandable: true
        Spoken.isExpanded: root.controller.isListOpen
    }
    StripView {
        id: row

        anchors.fill: parent
        anchors.leftMargin: listButton.width + 6
        name: qsTr("Fonts")
        strip: root.controller
        spacing: 3
        entries: names

        Repeater {
            id: names

            model: root.controller.buttons
            onItemRemoved: root.isPlaced = false
            onModelChanged: if (root.isReady) root.place()
            delegate: Loader {
                id: entry

                required property Layouter.StripButton modelData
                readonly property real start: x + row.width / 2 - row.contentX
                readonly property bool isInSight: root.isPlaced && start < row.width + root.reach && start + width > -root.reach

                width: root.widthOf(modelData.title, modelData.image !== "")
                height: row.entryHeight
                opacity: row.shareInView(this)
                onIsInSightChanged: if (isInSight && !item) setSource("FontButton.qml", {controller: modelData, pictures: root.controller.pictures})

                Binding {
                    target: entry.item
                    when: entry.item !== null
                    property: "showsFocus"
                    value: row.showsFocus && entry.modelData.isMySelected
                }
                Connections {
                    target: entry.item as MyButton

                    function onClicked(): void {
                        row.takeFocus();
                    }
                }
            }
        }
    }
    Loader {
        readonly property bool isOpen: root.controller.isListOpen

        onIsOpenChanged: {
            if (isOpen) {
                setSource("FontListPopup.qml", {controller: root.controller, parent: root});
                return;
            }
            const isLeft = !(item as FontListPopup)?.visible; // by a press elsewhere
            source = "";
            if (!isLeft)
                row.forceActiveFocus(); // the arrow keys go on in the strip
        }
    }
}
