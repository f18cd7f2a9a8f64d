// SPDX-License-Identifier: MIT
import QtQuick
import QtQuick.Shapes
import Zelvo
import Zelvo.Screens as Screens

// View of an ExportProgressView: a ring.
Shape {
    id: root

    required property Screens.ExportProgressView controller
    readonly property real ringRadius: width * controller.radiusOfWidth
    readonly property real lineWidth: ringRadius * controller.lineOfRadius

    layer.enabled: true
    layer.samples: 4
    Accessible.role: Accessible.ProgressBar
    Accessible.name: qsTr("Progress")

    // For screen readers, which look for these names.
    readonly property real value: Math.round(100 * controller.currentProgress)
    readonly property real minimumValue: 0
    readonly property real maximumValue: 100

    ShapePath {
        strokeColor: Theme.ringTrack
        strokeWidth: root.lineWidth
        fillColor: "transparent"
        capStyle: ShapePath.FlatCap

        PathAngleArc {
            centerX: root.width / 2
            centerY: root.height / 2
            radiusX: root.ringRadius
            radiusY: root.ringRadius
            startAngle: 0
            sweepAngle: 360
        }
    }
    ShapePath {
        strokeColor: root.controller.currentProgress > 0 ? Theme.accent : "transparent"
        strokeWidth: root.lineWidth
        fillColor: "transparent"
        capStyle: ShapePath.FlatCap

        PathAngleArc {
            centerX: root.width / 2
            centerY: root.height / 2
            radiusX: root.ringRadius
            radiusY: root.ringRadius
            startAngle: root.controller.startAngle
            sweepAngle: 360 * Math.min(1, root.controller.currentProgress)
        }
    }
}
