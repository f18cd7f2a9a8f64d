// SPDX-License-Identifier: MIT
// Frames of 1920 x 1080 of a general engine, Qt Quick 3D, as a measure for our own: the letters of
// our moving title with 4x multisampling, light from a picture, three lights, two of them with
// shadows, and a floor. Each frame is fetched, as for an encoder. The program prints milliseconds a
// frame; bench/compare.sh sets them against our exports. Needs an X display (xvfb-run).
//
// quickscene_bench [FRAMES [PICTURE.png]]
#include "MovingTitle.h"
#include "content/TextNode.h"
#include "stage/Nodes.h"

#include <QGuiApplication>
#include <QOffscreenSurface>
#include <QOpenGLContext>
#include <QOpenGLFramebufferObject>
#include <QQmlComponent>
#include <QQmlEngine>
#include <QQuickGraphicsDevice>
#include <QQuickItem>
#include <QQuickRenderControl>
#include <QQuickRenderTarget>
#include <QQuickWindow>
#include <QtQuick3D/QQuick3DGeometry>

#include <chrono>
#include <cstdio>
#include <memory>
#include <utility>

namespace {

using namespace zelvo;

constexpr QSize kSize(1920, 1080);

/// The letters of a text, at their places on the stage, as one geometry.
class TextGeometry : public QQuick3DGeometry {
public:
    explicit TextGeometry(const content::TextNode& text) {
        setStride(static_cast<int>(6 * sizeof(float)));
        setPrimitiveType(PrimitiveType::Triangles);
        addAttribute(Attribute::PositionSemantic, 0, Attribute::F32Type);
        addAttribute(
            Attribute::NormalSemantic, static_cast<int>(3 * sizeof(float)), Attribute::F32Type);
        for (const content::CharNodePtr& letter : text.letters())
            letter->enumerateHierarchy([this](scene::SCNNode& node) { add(node); });
        setBounds(
            QVector3D(box.min.x, box.min.y, box.min.z), QVector3D(box.max.x, box.max.y, box.max.z));
        setVertexData(corners);
    }

private:
    void add(const scene::SCNNode& node) {
        if (!node.geometry)
            return;
        const glm::mat4 world = node.worldTransform();
        const geometry::Mesh& mesh = node.geometry->mesh();
        for (const std::uint32_t index : mesh.indices) {
            const geometry::Vertex& vertex = mesh.vertices[index];
            const glm::vec3 place(world * glm::vec4(vertex.position, 1));
            const glm::vec3 normal = glm::normalize(glm::mat3(world) * vertex.normal);
            box.include(place);
            corners.append(reinterpret_cast<const char*>(&place), sizeof(place));   // NOLINT: bytes
            corners.append(reinterpret_cast<const char*>(&normal), sizeof(normal)); // NOLINT: bytes
        }
    }

    geometry::Box box;
    QByteArray corners;
};

/// Draws a QML scene into a framebuffer of its own.
class Stage {
public:
    Stage() {
        CHECK(context.create(), "there is no OpenGL");
        surface.setFormat(context.format());
        surface.create();
        context.makeCurrent(&surface);
        target = std::make_unique<QOpenGLFramebufferObject>(
            kSize, QOpenGLFramebufferObject::CombinedDepthStencil);
        window.setGraphicsDevice(QQuickGraphicsDevice::fromOpenGLContext(&context));
        window.setRenderTarget(QQuickRenderTarget::fromOpenGLTexture(target->texture(), kSize));
        window.setGeometry(QRect(QPoint(), kSize));
        window.contentItem()->setSize(kSize);
    }

    void show(const QVariantMap& properties) {
        QQmlComponent component(&engine, QUrl::fromLocalFile(ZELVO_QUICK_SCENE));
        CHECK(component.isReady(), "{}", component.errorString().toStdString());
        root.reset(qobject_cast<QQuickItem*>(component.createWithInitialProperties(properties)));
        CHECK(root, "{}", component.errorString().toStdString());
        root->setParentItem(window.contentItem());
        CHECK(control.initialize(), "Qt Quick does not start");
    }

    QImage draw(double time) {
        root->setProperty("time", time);
        control.polishItems();
        control.beginFrame();
        control.sync();
        control.render();
        control.endFrame();
        return target->toImage();
    }

private:
    QOpenGLContext context;
    QOffscreenSurface surface;
    std::unique_ptr<QOpenGLFramebufferObject> target;
    QQuickRenderControl control;
    QQuickWindow window{&control};
    QQmlEngine engine;
    std::unique_ptr<QQuickItem> root;
};

} // namespace

int main(int argc, char** argv) {
    QQuickWindow::setGraphicsApi(QSGRendererInterface::OpenGL);
    QSurfaceFormat format;
    format.setVersion(4, 5);
    format.setProfile(QSurfaceFormat::CoreProfile);
    QSurfaceFormat::setDefaultFormat(format);
    const QGuiApplication process(argc, argv);
    const QStringList arguments = QGuiApplication::arguments();
    const int frames = arguments.size() > 1 ? std::max(arguments[1].toInt(), 1) : 20;

    bench::Title title(0);
    TextGeometry first(*title.engine.stage().textNode1);
    TextGeometry second(*title.engine.stage().textNode2);
    Stage stage;
    stage.show(
        {{"first", QVariant::fromValue(&first)},
         {"second", QVariant::fromValue(&second)},
         {"probe", QUrl::fromLocalFile(ZELVO_QUICK_PROBE)}});
    QImage picture = stage.draw(0); // builds the shaders
    using Clock = std::chrono::steady_clock;
    const auto start = Clock::now();
    for (int i = 1; i <= frames; ++i)
        picture = stage.draw(i / 60.0);
    const double passed = std::chrono::duration<double, std::milli>(Clock::now() - start).count();
    std::printf("%.1f\n", passed / frames);
    if (arguments.size() > 2)
        picture.save(arguments[2]);
    return 0;
}
