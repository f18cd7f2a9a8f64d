// SPDX-License-Identifier: MIT
pragma ComponentBehavior: Bound
import QtQuick
import QtQuick.Templates as T
import Zelvo

// The alert on show, over everything else of its window.
Item {
    id: root

    required property var alerts

    signal closed

    function focusDefault(): void {
        const first = actions.itemAt(0);
        const last = actions.itemAt(actions.count - 1);
        if (popup.visible && first)
            (first.modelData.role === "destructive" ? last : first).forceActiveFocus(Qt.TabFocusReason);
    }

    Connections {
        target: root.alerts
        function onChanged(): void {
            content.show();
            root.focusDefault();
        }
    }

    T.Popup {
        id: popup

        parent: T.Overlay.overlay
        anchors.centerIn: parent
        implicitWidth: Math.min(Math.max(300, Theme.px(300)), parent ? parent.width - 32 : 300)
        implicitHeight: card.implicitHeight + 2 * padding
        padding: 16
        modal: true
        focus: true
        closePolicy: T.Popup.NoAutoClose
        visible: root.alerts.isShowing
        onOpened: root.focusDefault()
        onClosed: root.closed()

        T.Overlay.modal: Rectangle {
            color: "#99000000"
        }
        background: Rectangle {
            color: Qt.darker(Theme.separator, 1.35)
            radius: 2 * Theme.radius
            border.color: Theme.buttonFill
        }
        contentItem: FocusScope {
            focus: true
            Accessible.role: Accessible.Dialog
            Accessible.name: root.alerts.title
            Accessible.description: root.alerts.message
            Keys.onEscapePressed: root.alerts.escape()
            Keys.onBackPressed: root.alerts.escape()

            Column {
                id: card

                width: parent.width
                spacing: 14

                Column {
                    width: parent.width
                    spacing: 6

                    AlertText {
                        text: root.alerts.title
                        color: Theme.text
                        font.pixelSize: Theme.px(15)
                        font.weight: Font.DemiBold
                    }
                    AlertText {
                        visible: text !== ""
                        text: root.alerts.message
                        color: Qt.darker(Theme.text, 1.25)
                        font.pixelSize: Theme.px(13)
                    }
                }
                Loader {
                    id: content

                    width: parent.width
                    visible: status === Loader.Ready

                    function show(): void {
                        if (root.alerts.content)
                            setSource("qrc:/zelvo/" + root.alerts.contentView, { controller: root.alerts.content });
                        else
                            source = "";
                    }

                    Component.onCompleted: show()
                }
                Row {
                    width: parent.width
                    spacing: 8
                    layoutDirection: Qt.RightToLeft

                    Repeater {
                        id: actions

                        model: root.alerts.actions
                        delegate: AlertButton {
                            required property int index

                            width: (card.width - 8 * (actions.count - 1)) / actions.count
                            onClicked: root.alerts.choose(index)
                        }
                    }
                }
            }
        }
    }

    component AlertText: Text {
        width: parent.width
        horizontalAlignment: Text.AlignHCenter
        wrapMode: Text.Wrap
    }
}
