// SPDX-License-Identifier: MIT
import QtQuick
import QtQuick3D

View3D {
    id: view
    required property var first
    required property var second
    required property url probe
    property real time: 0

    anchors.fill: parent
    environment: SceneEnvironment {
        antialiasingMode: SceneEnvironment.MSAA
        antialiasingQuality: SceneEnvironment.High // 4 samples
        backgroundMode: SceneEnvironment.Color
        clearColor: "#101018"
        lightProbe: Texture { source: view.probe }
    }

    PerspectiveCamera {
        z: 345
        fieldOfView: 60
        clipNear: 1
        clipFar: 20000
    }
    SpotLight {
        position: Qt.vector3d(-240, 380, 420)
        eulerRotation: Qt.vector3d(-38, -30, 0)
        coneAngle: 60
        brightness: 60
        castsShadow: true
        shadowMapQuality: Light.ShadowMapQualityHigh
    }
    DirectionalLight {
        eulerRotation: Qt.vector3d(-50, 30, 0)
        brightness: 0.6
        castsShadow: true
        shadowMapQuality: Light.ShadowMapQualityHigh
    }
    PointLight {
        position: Qt.vector3d(0, -20, -250)
        color: "#194CE6"
        brightness: 20
    }
    Model {
        source: "#Rectangle"
        y: -185
        eulerRotation.x: -90
        scale: Qt.vector3d(32, 32, 1)
        castsShadows: false
        materials: PrincipledMaterial { baseColor: "#4A4A50"; roughness: 0.5 }
    }
    Model {
        geometry: view.first
        eulerRotation.y: 17 * Math.sin(3 * view.time)
        materials: PrincipledMaterial { baseColor: "#FFFFFF"; metalness: 1; roughness: 0.35 }
    }
    Model {
        geometry: view.second
        eulerRotation.y: -17 * Math.sin(3 * view.time)
        materials: PrincipledMaterial { baseColor: "#E6B219"; roughness: 0.4 }
    }
}
