// SPDX-License-Identifier: MIT
// A stage dressed by hand in the real window, with real events. With ZELVO_WINDOW_PICTURES naming a
// folder, pictures are left there.
#include "audio/AudioPlayer.h"
#include "content/ImageVideo.h"
#include "environments/SceneManager.h"
#include "image/ImageFiles.h"
#include "media/MediaFixture.h"
#include "media/VideoFixture.h"
#include "platform/render/CameraView.h"
#include "ui/audio/AudioViewController.h"
#include "ui/layouter/ColorPickers.h"
#include "ui/window/WindowFixture.h"

#include <QClipboard>
#include <QDragEnterEvent>
#include <QGuiApplication>
#include <QMimeData>

#include <cmath>

namespace zelvo::app {
namespace {

using test::soon;

class StyleTest : public test::WindowFixture {
protected:
    ui::LayouterMenu& menu() { return *panel<ui::LayouterMenu>(); }

    /// Where a drag holds a node, in the window, which has the stage's proportions: a little in front
    /// of its middle.
    [[nodiscard]] QPointF placeOf(const node::Node& node) const {
        const auto size = glm::vec2(window.width(), window.height());
        const auto& camera = *model.nodes().cameraNode;
        const auto view =
            render::makeCameraView(camera.worldTransform(), *camera.camera, size.x / size.y);
        const geometry::Box box = node.contentNode->boundingBox();
        glm::vec4 held =
            node.contentNode->worldTransform() * glm::vec4((box.min + box.max) / 2.0f, 1);
        held.z += 0.04f * (stage::kCameraHome.z - held.z);
        const glm::vec4 clip = view.viewProjection * held;
        const glm::vec2 place = (glm::vec2(clip.x, -clip.y) / clip.w + 1.0f) / 2.0f * size;
        return {place.x, place.y};
    }

    void click(const QObject* controller) {
        ASSERT_TRUE(soon([&] { return view(controller) != nullptr; }));
        QTest::qWait(300);                      // a strip has scrolled
        static_cast<void>(window.grabWindow()); // rows get their places when a frame is drawn
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

    /// Waits until the text is held within a pixel of a place.
    void expectAt(const QPointF& place) {
        const auto aside = [&] { return placeOf(text) - place; };
        const auto isThere = [&] { return std::hypot(aside().x(), aside().y()) < 1; };
        EXPECT_TRUE(soon(isThere, 5000)) << aside().x() << ", " << aside().y() << " px beside it";
    }

    /// Drops a file from another program on the middle of the stage.
    void drop(const std::filesystem::path& file);
    /// Drags an item by its middle; with the finger it has to be held first.
    void pull(const QObject& controller, int points, bool isByFinger = false);

    void drag();
    void touch();
    void write();
    void mixColor();

    content::TextNode& text = *model.nodes().textNode1;
};

void StyleTest::drop(const std::filesystem::path& file) {
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
}

void StyleTest::pull(const QObject& controller, int points, bool isByFinger) {
    const auto* const item = view(&controller);
    ASSERT_NE(item, nullptr);
    const QPoint from = item->mapRectToScene(item->boundingRect()).center().toPoint();
    constexpr int kSteps = 6;
    if (isByFinger) {
        const auto screen = std::unique_ptr<QPointingDevice>(QTest::createTouchDevice());
        auto finger = QTest::touchEvent(&window, screen.get(), false);
        finger.press(1, from).commit();
        QTest::qWait(500);
        for (int i = 1; i <= kSteps; ++i)
            finger.move(1, from + QPoint(points * i / kSteps, 0)).commit();
        finger.release(1, from + QPoint(points, 0)).commit();
        return;
    }
    QTest::mousePress(&window, Qt::LeftButton, {}, from);
    for (int i = 1; i <= kSteps; ++i)
        QTest::mouseMove(&window, from + QPoint(points * i / kSteps, 0), 10);
    QTest::mouseRelease(&window, Qt::LeftButton, {}, from + QPoint(points, 0));
}

void StyleTest::drag() {
    text.setText("H"); // its middle is no hole
    const QPointF from = placeOf(text);
    QTest::mouseClick(&window, Qt::LeftButton, {}, from.toPoint());
    ASSERT_TRUE(soon([&] { return menu().currentNode() == model.nodes().textNode1; }));
    QTest::qWait(600); // the press that follows is no second tap
    const QPoint by(90, -50);
    QTest::mousePress(&window, Qt::LeftButton, {}, from.toPoint());
    for (int i = 1; i <= 10; ++i) {
        QTest::mouseMove(&window, from.toPoint() + by * i / 10);
        QTest::qWait(30);
    }
    QTest::mouseRelease(&window, Qt::LeftButton, {}, from.toPoint() + by);
    expectAt(from + by);
}

void StyleTest::touch() {
    const auto screen = std::unique_ptr<QPointingDevice>(QTest::createTouchDevice());
    auto fingers = QTest::touchEvent(&window, screen.get(), false);
    const QPointF from = placeOf(text);
    const QPoint first = from.toPoint();
    menu().setCurrentNode(nullptr);
    fingers.press(1, first).commit();
    fingers.release(1, first).commit();
    ASSERT_TRUE(soon([&] { return menu().currentNode() == model.nodes().textNode1; }));
    QTest::qWait(600); // what follows is no second tap

    const QPoint by(-60, 40);
    fingers.press(1, first).commit();
    for (int i = 1; i <= 4; ++i)
        fingers.move(1, first + by * i / 4).commit();
    fingers.release(1, first + by).commit();
    expectAt(from + by);

    const glm::vec3 place = text.layoutPosition();
    const float size = text.scale2D;
    const QPoint left(500, 200);
    fingers.press(1, left).commit();
    fingers.stationary(1).press(2, left + QPoint(100, 0)).commit();
    fingers.stationary(1).move(2, left + QPoint(150, 0)).commit();
    fingers.release(1, left).release(2, left + QPoint(150, 0)).commit();
    EXPECT_TRUE(soon([&] { return std::abs(text.scale2D - size - 0.35f) < 0.01f; }));
    EXPECT_EQ(text.layoutPosition(), place);
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
    ASSERT_NO_FATAL_FAILURE(click(&strip.picker.pipette.button));
    QTest::keyClick(&window, Qt::Key_F3); // it is on top, and has the keys
    QTest::keyClick(&window, Qt::Key_Escape);
    EXPECT_TRUE(soon([&] { return !strip.picker.pipette.isOn(); }));
    EXPECT_TRUE(strip.picker.isOpen());
    EXPECT_EQ(panel<ui::ActionsMenu>(), nullptr);
    QTest::keyClick(&window, Qt::Key_Tab); // leaves the pipette's button
    QTest::keyClick(&window, Qt::Key_Return);
    EXPECT_TRUE(soon([&] { return !strip.picker.isOpen(); }));
}

TEST_F(StyleTest, AStageIsDressedByHand) {
    ASSERT_TRUE(isReady());
    ASSERT_NO_FATAL_FAILURE(drag());
    ASSERT_NO_FATAL_FAILURE(touch());
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
    drop(file);
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

TEST_F(StyleTest, AVideoIsDropped) {
    ASSERT_TRUE(isReady());
    const auto clip = folder.path() / "clip.mp4";
    media::makeVideo(clip, {});
    drop(clip);
    const auto& node = *model.nodes().imageNode;
    EXPECT_TRUE(soon([&] { return content::videoOf(node) != nullptr; }));
}

TEST_F(StyleTest, MusicIsDroppedAndCut) {
    ASSERT_TRUE(isReady());
    const auto song = folder.path() / "song.wav";
    media::writeWav(song, 44100, 20, media::sine(440, 0.5));
    drop(song);
    const auto& player = model.audioPlayer();
    ASSERT_TRUE(soon([&] { return player.audioURL.has_value(); }));
    const auto editorOf = [this] {
        return qobject_cast<ui::AudioViewController*>(menu().stripObject());
    };
    ASSERT_TRUE(soon([&] { return editorOf() != nullptr && view(editorOf()) != nullptr; }));
    auto& editor = *editorOf();
    QTest::qWait(500); // it has slid in
    picture("music");

    const double end = player.audioEnd; // of the song
    constexpr double kPoint = 1.0 / 30; // seconds
    ASSERT_NO_FATAL_FAILURE(pull(editor.rightDragger, -60));
    EXPECT_NEAR(player.audioEnd, end - 2, 2 * kPoint);
    ASSERT_NO_FATAL_FAILURE(pull(editor.draggableView, 90));
    EXPECT_NEAR(player.audioPreRoll, 3, 2 * kPoint);
    ASSERT_NO_FATAL_FAILURE(pull(editor.draggableView, -30, true));
    EXPECT_NEAR(player.audioPreRoll, 2, 2 * kPoint);
    QTest::keyClick(&window, Qt::Key_Left, Qt::ShiftModifier);
    EXPECT_NEAR(player.audioPreRoll, 1, 3 * kPoint) << "what was dragged has the keys";

    ASSERT_NO_FATAL_FAILURE(click(&editor.playPauseButton));
    EXPECT_TRUE(soon([&] { return editor.currentTimerTime() > player.audioPreRoll + 0.2; }));
    EXPECT_TRUE(player.isPlaying);
    QTest::keyClick(&window, Qt::Key_F3);
    EXPECT_TRUE(soon([&] { return panel<ui::ActionsMenu>() != nullptr; }));
    EXPECT_FALSE(player.isPlaying) << "the preview ends with its screen";
}

} // namespace
} // namespace zelvo::app
