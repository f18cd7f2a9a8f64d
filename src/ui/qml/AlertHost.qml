// SPDX-License-Identifier: MIT
pragma ComponentBehavior: Bound
import QtQuick
import Zelvo
import Zelvo.Controls as Controls

// Shows the current alert on top of everything else in the window.
FocusScope {
    id: root

    required property Controls.Alerts alerts

    visible: alerts.isShowing
    onActiveFocusChanged: if (activeFocus) Qt.callLater(focusDefault)

    Accessible.role: Accessible.Dialog
    Accessible.name: alerts.title
    Accessible.description: alerts.message
    Keys.onEscapePressed: alerts.escape()
    Keys.onBackPressed: alerts.escape()
    Keys.onReturnPressed: event => accept(event)
    Keys.onEnterPressed: event => accept(event)

    // A held Return answers only one alert; the next one needs its own press.
    function accept(event: KeyEvent): void {
        if (!event.isAutoRepeat)
            alerts.accept();
    }
    function focusDefault(): void {
        const first = (content.item ?? actions.itemAt(alerts.defaultAction)) as Item;
        if (first && activeFocus)
            first.forceActiveFocus(Qt.TabFocusReason);
    }

    Connections {
        target: root.alerts

        function onChanged(): void {
            content.show();
            Qt.callLater(root.focusDefault);
        }
    }
    Rectangle {
        anchors.fill: parent
        color: "#99000000"
    }
    MouseArea { // keeps the mouse away from the items below
        anchors.fill: parent
        hoverEnabled: true
        onWheel: wheel => wheel.accepted = true
    }
    Rectangle {
        anchors.centerIn: parent
        // From three buttons on, their words need more than a short sentence does.
        width: Math.min(Math.max(300, Theme.px(300), Theme.px(120 * actions.count), (content.item as Item)?.implicitWidth + 32 || 0), parent.width - 32)
        height: card.implicitHeight + 32
        color: Qt.darker(Theme.separator, 1.35)
        radius: 2 * Theme.radius
        border.color: Theme.buttonFill

        Column {
            id: card

            x: 16
            y: 16
            width: parent.width - 32
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
                        setSource(root.alerts.contentView + ".qml", { controller: root.alerts.content });
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

    component AlertText: Text {
        width: parent.width
        horizontalAlignment: Text.AlignHCenter
        textFormat: Text.PlainText // names of files are not markup
        wrapMode: Text.Wrap
    }
}
