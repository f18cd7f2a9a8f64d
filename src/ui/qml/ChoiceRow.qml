// SPDX-License-Identifier: MIT
pragma ComponentBehavior: Bound
import QtQuick
import QtQuick.Templates as T
import Zelvo

// A row of choices, of which one is lit. Left and Right choose another one.
Rectangle {
    id: root

    required property string name
    required property list<string> choices
    property int chosen: 0
    property bool isUsable: true
    // Words of very different lengths get room by their length where equal shares would cut one off.
    readonly property real share: width / Math.max(1, choices.length)
    readonly property bool isTight: longest() > share

    signal asked(index: int)

    function lengthOf(word: string): real {
        return metrics.advanceWidth(word) + 8;
    }
    function longest(): real {
        let most = 0;
        for (let i = 0; i < choices.length; ++i)
            most = Math.max(most, lengthOf(choices[i]));
        return most;
    }
    function sum(): real {
        let all = 0;
        for (let i = 0; i < choices.length; ++i)
            all += lengthOf(choices[i]);
        return all;
    }

    implicitHeight: 44
    radius: Theme.radius
    color: Theme.buttonFill
    opacity: isUsable ? 1 : Theme.dimmed
    activeFocusOnTab: isUsable

    Accessible.role: Accessible.Grouping
    Accessible.name: root.name
    Accessible.description: root.choices[root.chosen] ?? ""
    Accessible.focusable: isUsable
    Keys.onLeftPressed: if (isUsable) asked(Math.max(0, chosen - 1))
    Keys.onRightPressed: if (isUsable) asked(Math.min(choices.length - 1, chosen + 1))

    FontMetrics {
        id: metrics

        font.pixelSize: Theme.px(13)
        font.weight: Font.DemiBold
    }
    Row {
        anchors.fill: parent

        Repeater {
            model: root.choices

            T.AbstractButton {
                id: choice

                required property int index
                required property string modelData
                readonly property bool isChosen: index === root.chosen

                width: root.isTight ? root.lengthOf(modelData) + root.share - root.sum() / root.choices.length : root.share
                height: root.height
                enabled: root.isUsable
                hoverEnabled: true
                focusPolicy: Qt.NoFocus
                Accessible.name: modelData
                Accessible.onPressAction: clicked()
                Spoken.role: Accessible.RadioButton
                Spoken.isToggle: true
                Spoken.isOn: isChosen
                onClicked: {
                    root.forceActiveFocus();
                    root.asked(index);
                }

                background: Rectangle {
                    anchors.fill: parent
                    anchors.margins: 2
                    radius: Theme.radius - 1
                    color: choice.isChosen ? Theme.accent : "transparent"

                    Rectangle {
                        anchors.fill: parent
                        radius: parent.radius
                        color: Theme.text
                        opacity: choice.down ? 0.22 : choice.hovered && !choice.isChosen ? 0.09 : 0
                    }
                }
                contentItem: Text {
                    text: choice.modelData
                    color: Theme.text
                    font.pixelSize: Theme.px(13)
                    font.weight: choice.isChosen ? Font.DemiBold : Font.Normal
                    horizontalAlignment: Text.AlignHCenter
                    verticalAlignment: Text.AlignVCenter
                    elide: Text.ElideRight
                }
            }
        }
    }
    FocusRing {
        shown: root.activeFocus
    }
}
