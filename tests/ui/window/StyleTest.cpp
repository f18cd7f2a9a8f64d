// SPDX-License-Identifier: MIT
// A stage dressed by hand in the real window, with real events. With ZELVO_WINDOW_PICTURES naming a
// folder, pictures are left there.
#include "environments/SceneManager.h"
#include "image/ImageFiles.h"
#include "platform/render/CameraView.h"
#include "ui/layouter/ColorPickers.h"
#include "ui/window/WindowFixture.h"

#include <QClipboard>
#include <QDragEnterEvent>
#include <QGuiApplication>
#include <QMimeData>

namespace zelvo::app {
namespace {

using test::soon;

class StyleTest : public test::WindowFixture {
protected:
    ui::LayouterMenu& menu() { return *panel<ui::LayouterMenu>(); }

    /// Where a node's middle is in the window, which has the stage's proportions.
    [[nodiscard]] QPoint placeOf(const node::Node& node) const {
        const auto size = glm::vec2(window.width(), window.height());
        const auto& camera = *model.nodes().cameraNode;
        const auto view =
            render::makeCameraView(camera.worldTransform(), *camera.camera, size.x / size.y);
        const geometry::Box box = node.contentNode->boundingBox();
        const glm::vec4 clip = view.viewProjection * node.contentNode->worldTransform() *
                               glm::vec4((box.min + box.max) / 2.0f, 1);
        const glm::vec2 place = (glm::vec2(clip.x, -clip.y) / clip.w + 1.0f) / 2.0f * size;
        return QPointF(place.x, place.y).toPoint();
    }

    void click(const QObject* controller) {
        ASSERT_TRUE(soon([&] { return view(controller) != nullptr; }));
        QTest::qWait(300); // a strip has scrolled
        const QQuickItem& item = *view(controller);
        const QPoint middle = item.mapRectToScene(item.boundingRect()).center().toPoint();
        QTest::mouseClick(&window, Qt::LeftButton, {}, middle);
    }

    void openTab(const char* title) {
        for (ui::MyButton* const tab : menu().stackView.arranged()) {
            if (tab->title() == title)
                return click(tab);
        }
        FAIL() << title;
    }

    /// Takes the strip's entry that follows the current one, by the key.
    void takeNext() {
        ASSERT_NO_FATAL_FAILURE(click(menu().stripObject()));
        QTest::keyClick(&window, Qt::Key_Right);
    }

    void picture(const QString& name) {
        const QString pictures = qEnvironmentVariable("ZELVO_WINDOW_PICTURES");
        if (!pictures.isEmpty()) {
            QTest::qWait(500);
            EXPECT_TRUE(window.grabWindow().save(pictures + "/" + name + ".png"));
        }
    }

    /// The stage is drawn, and has faded in.
    [[nodiscard]] bool isReady() {
        return isDrawn() && soon([this] { return application.main.sceneAlpha() == 1; });
    }

    void drag();
    void write();
    void mixColor();

    content::TextNode& text = *model.nodes().textNode1;
};

void StyleTest::drag() {
    text.setText("H"); // its middle is no hole
    const QPoint from = placeOf(text);
    QTest::mouseClick(&window, Qt::LeftButton, {}, from);
    ASSERT_TRUE(soon([&] { return menu().currentNode() == model.nodes().textNode1; }));
    QTest::qWait(600); // the press that follows is no second tap
    const QPoint by(90, -50);
    QTest::mousePress(&window, Qt::LeftButton, {}, from);
    for (int i = 1; i <= 10; ++i) {
        QTest::mouseMove(&window, from + by * i / 10);
        QTest::qWait(30);
    }
    QTest::mouseRelease(&window, Qt::LeftButton, {}, from + by);
    const auto distance = [&] { return (placeOf(text) - from - by).manhattanLength(); };
    const int halfway = by.manhattanLength() / 2;
    EXPECT_TRUE(soon([&] { return distance() < halfway; })) << distance() << " px from the pointer";
}

void StyleTest::write() {
    ASSERT_NO_FATAL_FAILURE(openTab("Write"));
    ASSERT_TRUE(soon([&] {
        const auto* const item = window.activeFocusItem();
        return menu().isWriting() && item != nullptr && item->inherits("QQuickTextInput");
    }));
    QGuiApplication::clipboard()->setText("go");
    QTest::keyClick(&window, Qt::Key_A, Qt::ControlModifier);
    QTest::keyClick(&window, Qt::Key_V, Qt::ControlModifier);
    QTest::keyClick(&window, Qt::Key_Exclam);
    EXPECT_TRUE(soon([&] { return text.text() == "go!"; })) << text.text();
    QTest::keyClick(&window, Qt::Key_Return);
    EXPECT_TRUE(soon([&] { return !menu().isWriting(); }));
}

void StyleTest::mixColor() {
    ASSERT_NO_FATAL_FAILURE(openTab("Frontcolor"));
    const image::Color before = text.frontColor();
    auto& strip = *qobject_cast<ui::SimpleColorPicker*>(menu().stripObject());
    ASSERT_NO_FATAL_FAILURE(click(&strip.importButton));
    for (ui::GradientSlider* const slider : strip.picker.stackView())
        ASSERT_NO_FATAL_FAILURE(click(slider->sliderObject()));
    EXPECT_TRUE(soon([&] { return text.frontColor() != before; }));
    picture("style-color");
    QTest::keyClick(&window, Qt::Key_Return);
    EXPECT_TRUE(soon([&] { return !strip.picker.isOpen(); }));
}

TEST_F(StyleTest, AStageIsDressedByHand) {
    ASSERT_TRUE(isReady());
    ASSERT_NO_FATAL_FAILURE(drag());
    ASSERT_NO_FATAL_FAILURE(write());
    const std::string font = text.fontName();
    ASSERT_NO_FATAL_FAILURE(openTab("Font"));
    ASSERT_NO_FATAL_FAILURE(takeNext());
    EXPECT_TRUE(soon([&] { return text.fontName() != font; }));
    ASSERT_NO_FATAL_FAILURE(mixColor());

    click(&menu().backButton);
    openTab("Object");
    const auto shape = model.nodes().mediaNode->currentShape();
    ASSERT_NO_FATAL_FAILURE(takeNext());
    EXPECT_TRUE(soon([&] { return model.nodes().mediaNode->currentShape() != shape; }));
    click(&menu().backButton);
    openTab("Background");
    const int scene = model.currentSceneIndex();
    ASSERT_NO_FATAL_FAILURE(takeNext());
    EXPECT_TRUE(soon([&] { return model.currentSceneIndex() != scene; }));

    QTest::keyClick(&window, Qt::Key_F3);
    ASSERT_TRUE(soon([&] { return panel<ui::ActionsMenu>() != nullptr; }));
    QTest::keyClick(&window, Qt::Key_F2);
    ASSERT_TRUE(soon([&] { return panel<ui::LayouterMenu>() != nullptr; }));
    EXPECT_EQ(text.text(), "go!");
    picture("style-end");
}

TEST_F(StyleTest, PicturesAreDroppedAndPasted) {
    ASSERT_TRUE(isReady());
    const auto width = [&] { return model.nodes().imageNode->image()->width; };
    const auto file = folder.path() / "dropped.png";
    ASSERT_TRUE(savePNG(image::quartered(30, 20), file));
    QMimeData data;
    data.setUrls({QUrl::fromLocalFile(file.c_str())});
    const QPoint place(640, 300);
    QDragEnterEvent entering(place, Qt::CopyAction, &data, Qt::LeftButton, {});
    QCoreApplication::sendEvent(&window, &entering);
    EXPECT_TRUE(entering.isAccepted());
    picture("drop");
    QDropEvent dropping(place, Qt::CopyAction | Qt::MoveAction, &data, Qt::LeftButton, {});
    QCoreApplication::sendEvent(&window, &dropping);
    EXPECT_EQ(dropping.dropAction(), Qt::CopyAction);
    EXPECT_TRUE(soon([&] { return width() == 30; }));
    EXPECT_EQ(menu().currentNode(), model.nodes().imageNode);

    ASSERT_TRUE(savePNG(image::quartered(44, 22), file));
    const auto bytes = image::bytesOf(file);
    auto copied = std::make_unique<QMimeData>();
    copied->setData(
        "image/png",
        {reinterpret_cast<const char*>(bytes.data()), static_cast<qsizetype>(bytes.size())});
    QGuiApplication::clipboard()->setMimeData(copied.release());
    QTest::keyClick(&window, Qt::Key_V, Qt::ControlModifier);
    EXPECT_TRUE(soon([&] { return width() == 44; }));
}

} // namespace
} // namespace zelvo::app
