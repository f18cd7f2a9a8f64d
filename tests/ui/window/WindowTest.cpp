// SPDX-License-Identifier: MIT
// One performance by hand in the real window, with real events: from the start to the preview.
// With ZELVO_WINDOW_PICTURES naming a folder, pictures of the screens are left there.
#include "app/WindowPlace.h"
#include "shared/Palette.h"
#include "support/ViewWarnings.h"
#include "ui/controls/Alerts.h"
#include "ui/layouter/ColorPickers.h"
#include "ui/screens/ExportSettingsController.h"
#include "ui/screens/ExportViewController.h"
#include "ui/screens/HistoryController.h"
#include "ui/screens/PreviewViewController.h"
#include "ui/window/WindowFixture.h"

#include <QElapsedTimer>
#include <QGuiApplication>
#include <QScreen>
#include <QThread>

#include <algorithm>
#include <filesystem>

namespace zelvo::app {
namespace {

using test::soon;

constexpr double kLongRun = 300; ///< seconds: no run ends while a busy machine takes its time

class WindowTest : public test::WindowFixture {
protected:
    WindowTest() { model.movieWriter().options.renderSize = {160, 90}; }

    [[nodiscard]] QPoint placeOf(const QObject* controller) {
        if (!soon([&] { return view(controller) != nullptr; })) {
            ADD_FAILURE() << "a control is not shown";
            return {};
        }
        return view(controller)
            ->mapRectToScene(view(controller)->boundingRect())
            .center()
            .toPoint();
    }

    void click(const QObject* controller) {
        QTest::mouseClick(&window, Qt::LeftButton, {}, placeOf(controller));
    }

    [[nodiscard]] bool takesKeys(const QObject* controller) const {
        const QQuickItem* const shown = view(controller);
        const QQuickItem* const focus = window.activeFocusItem();
        return shown != nullptr && focus != nullptr &&
               (shown == focus || shown->isAncestorOf(focus));
    }

    void picture(const QString& name) {
        const QString pictures = qEnvironmentVariable("ZELVO_WINDOW_PICTURES");
        if (pictures.isEmpty())
            return;
        QTest::qWait(500); // all animations have ended
        EXPECT_TRUE(window.grabWindow().save(pictures + "/" + name + ".png"));
    }

    [[nodiscard]] std::size_t records() const {
        std::size_t rows = 0;
        for (const auto& action : model.actionController().recordedActions())
            rows += action->registerUndo ? 1 : 0;
        return rows;
    }

    template <class Kind> Kind* screen() { return qobject_cast<Kind*>(application.main.screen()); }

    void openCatalogue();
    void pinchCamera();
    void record();
    void deleteFromHistory();
    void exportMovie();

    std::unique_ptr<QPointingDevice> finger{QTest::createTouchDevice()};
};

void WindowTest::openCatalogue() {
    ASSERT_TRUE(isDrawn());
    ASSERT_NE(panel<ui::LayouterMenu>(), nullptr);
    EXPECT_FALSE(application.main.shareButton.isEnabled());
    EXPECT_TRUE(soon([&] { return application.main.sceneAlpha() == 1; }));
    picture("1-style");
    QTest::keyClick(&window, Qt::Key_F3);
    ASSERT_TRUE(soon([&] { return panel<ui::ActionsMenu>() != nullptr; }));
    picture("2-catalogue");
}

void WindowTest::pinchCamera() {
    const auto depth = [&] { return glm::vec3(model.nodes().cameraPinchNode->position).z; };
    const QPoint middle(640, 300);
    auto fingers = QTest::touchEvent(&window, finger.get(), false);
    fingers.press(0, middle - QPoint(40, 0)).commit();
    fingers.stationary(0).press(1, middle + QPoint(40, 0)).commit();
    for (int apart = 60; apart <= 200; apart += 20)
        fingers.stationary(0).move(1, middle + QPoint(apart, 0)).commit();
    EXPECT_TRUE(soon([&] { return depth() < -1; })) << "two fingers that part";
    fingers.stationary(0).release(1, middle + QPoint(200, 0)).commit();
    fingers.release(0, middle - QPoint(40, 0)).commit();
    EXPECT_TRUE(soon([&] { return depth() > -0.01; })) << "it springs back";
}

void WindowTest::record() {
    ui::ActionsMenu& menu = *panel<ui::ActionsMenu>();
    model.setDuration(kLongRun);
    menu.nextTab();
    QTest::keyClick(&window, Qt::Key_Tab); // whatever button has the focus now
    QTest::keyClick(&window, Qt::Key_Tab);
    QTest::keyClick(&window, Qt::Key_Space);
    ASSERT_TRUE(soon([&] { return model.isPlaying() && model.time() > 2; }));
    QTest::keyClick(&window, Qt::Key_F3);
    click(&application.main.mainMenu.animButton);
    EXPECT_TRUE(menu.tabButton("IN2").isMySelected());
    menu.previousTab();

    click(menu.actionButtons().at(0).get());
    EXPECT_TRUE(soon([&] { return records() == 1; })) << "by mouse";
    QTest::keyPress(&window, Qt::Key_2);
    QTest::keyRelease(&window, Qt::Key_2);
    EXPECT_TRUE(soon([&] { return records() == 2; })) << "by keyboard";
    const QPoint place = placeOf(menu.actionButtons().at(2).get());
    QTest::touchEvent(&window, finger.get()).press(0, place, &window);
    EXPECT_TRUE(soon([&] { return records() == 3; })) << "by touch, before the finger is lifted";
    QTest::touchEvent(&window, finger.get()).release(0, place, &window);

    EXPECT_GT(placeOf(application.main.progressObject()).y(), 0);
    picture("3-run");
    QTest::keyClick(&window, Qt::Key_Space);
    ASSERT_TRUE(soon([&] { return !model.isPlaying(); }));
    EXPECT_EQ(model.time(), 0);
}

void WindowTest::deleteFromHistory() {
    click(&application.main.controlMenu.historyButton);
    ASSERT_TRUE(soon([&] { return screen<ui::HistoryController>() != nullptr; }));
    picture("4-history");
    ASSERT_TRUE(soon([&] { return takesKeys(application.main.screen()); }));
    QTest::keyClick(&window, Qt::Key_Delete);
    EXPECT_TRUE(soon([&] { return records() == 2; }));
    QTest::simulateEvent(&window, true, Qt::Key_Delete, {}, {}, true);
    QTest::keyClick(&window, Qt::Key_Escape);
    ASSERT_TRUE(soon([&] { return application.main.screen() == nullptr; }));
    EXPECT_EQ(records(), 2U) << "a held key deletes one row only";
}

void WindowTest::exportMovie() {
    model.setDuration(model::Model::kMinDuration);
    QTest::keyClick(&window, Qt::Key_E, Qt::ControlModifier);
    ASSERT_TRUE(soon([&] { return takesKeys(application.main.screen()); }));
    auto* const settings = screen<ui::ExportSettingsController>();
    ASSERT_NE(settings, nullptr);
    QTest::keyClick(&window, Qt::Key_Right); // the first row: the format
    EXPECT_EQ(settings->format(), 1);
    picture("5-settings");
    settings->setSize(static_cast<int>(settings->sizes().size()) - 1);
    settings->setOwnSize("160x90");
    QTest::keyClick(&window, Qt::Key_Return);
    ASSERT_TRUE(soon([&] { return screen<ui::ExportViewController>() != nullptr; }));
    picture("5-export");
    auto& alerts = *application.main.alertsObject();
    ASSERT_TRUE(soon([&] {
        const auto* const sheet = screen<ui::ExportViewController>();
        return sheet == nullptr || sheet->preview() != nullptr;
    }));
    ASSERT_NE(screen<ui::ExportViewController>(), nullptr) << "the export failed";
    EXPECT_GT(std::filesystem::file_size(model.movieURL()), 1000U);
    auto& preview = *screen<ui::ExportViewController>()->preview();
    ASSERT_TRUE(soon([&] { return view(&preview) && alerts.isShowing(); }));
    picture("6-preview");
    QTest::keyClick(&window, Qt::Key_Space);
    EXPECT_FALSE(alerts.isShowing()) << "the space bar presses the button that has the focus";
    EXPECT_FALSE(preview.isPlaying());
    alerts.showAlert("Another", "With all else below it.");
    QTest::keyClick(&window, Qt::Key_Return);
    EXPECT_FALSE(alerts.isShowing());
    QTest::keyClick(&window, Qt::Key_Space);
    EXPECT_TRUE(preview.isPlaying());
    preview.share();
    QTest::keyClick(&window, Qt::Key_Escape);
    EXPECT_FALSE(preview.isSharing());
    QTest::keyClick(&window, Qt::Key_Escape);
    EXPECT_TRUE(soon([&] { return application.main.screen() == nullptr; }));
}

TEST_F(WindowTest, APerformanceFromTheStartToThePreview) {
    ASSERT_NO_FATAL_FAILURE(openCatalogue());
    ASSERT_NO_FATAL_FAILURE(pinchCamera());
    ASSERT_NO_FATAL_FAILURE(record());
    ASSERT_NO_FATAL_FAILURE(deleteFromHistory());
    ASSERT_NO_FATAL_FAILURE(exportMovie());
}

TEST_F(WindowTest, ThePipetteTakesAColorFromTheStageAndEscapeGivesItBack) {
    ASSERT_TRUE(isDrawn());
    ui::LayouterMenu& menu = *panel<ui::LayouterMenu>();
    menu.setCurrentNodeFromButton(0);
    menu.setCurrentOption(ui::CurrentOption::frontColor);
    const auto& text = *model.nodes().textNode1;
    text.contentNode->isHidden = true; // nothing but the background, which is blue
    auto& strip = *qobject_cast<ui::SimpleColorPicker*>(menu.stripObject());
    click(&strip.importButton);
    ASSERT_TRUE(soon([&] { return strip.picker.isOpen() && view(&strip.picker.pipette.button); }));
    click(&strip.picker.pipette.button);
    ASSERT_TRUE(soon([&] { return strip.picker.pipette.hasPicture(); }));
    const QPoint place(1000, 180);
    QTest::mousePress(&window, Qt::LeftButton, {}, place);
    picture("7-pipette");
    QColor shown;
    EXPECT_TRUE(soon([&] { // after the stage has faded in
        shown = window.grabWindow().pixelColor(place * window.devicePixelRatio());
        return shown.blue() > shown.red() + 40 && strip.picker.pipette.color() == shown;
    }));
    QTest::mouseRelease(&window, Qt::LeftButton, {}, place);
    EXPECT_EQ(text.frontColor(), image::Color::hex(shown.rgb() & 0xFFFFFFU));
    EXPECT_TRUE(soon([&] { return takesKeys(&strip.picker.pipette.button); }));
    QTest::keyClick(&window, Qt::Key_Escape);
    EXPECT_EQ(text.frontColor(), ui::kPalette[ui::kWhiteIndex]);
    EXPECT_TRUE(soon([&] { return !strip.picker.isOpen(); }));
}

TEST_F(WindowTest, ARunKeepsItsTimeHoweverLongAPictureTakes) {
    ASSERT_TRUE(isDrawn());
    application.main.showAnim();
    const auto take = [&](auto moment, unsigned long milliseconds) {
        QObject::connect(
            &window, moment, &window, [=] { QThread::msleep(milliseconds); }, Qt::DirectConnection);
    };
    take(&QQuickWindow::afterSynchronizing, 25); // the main thread waits
    take(&QQuickWindow::afterRendering, 100);
    model.setDuration(model::Model::kMinDuration);
    QElapsedTimer watch;
    watch.start();
    model.start();
    application.runLoop().runUntil([&] { return !model.isPlaying(); });
    const double whole = model.startCounter() + model.duration();
    // A clock that steps with the pictures would take four times as long or more.
    EXPECT_LT(static_cast<double>(watch.elapsed()) / 1000, 2.5 * whole);
}

TEST(WindowPlace, ShowsTheWholeWindowWithItsTitleBarOnSomeScreen) {
    const QList<QRect> screens{{0, 30, 1400, 870}, {1400, 0, 800, 600}};
    const QMargins frame(2, 25, 2, 2);

    struct Row {
        QRect kept;
        QRect shown;
    };

    // clang-format off
    const Row rows[] = {
        {{100, 100, 1280, 720},   {100, 100, 1280, 720}},
        {{100, 20, 1280, 720},    {100, 55, 1280, 720}},  // the title bar is cut off
        {{-300, 700, 1280, 720},  {2, 178, 1280, 720}},
        {{0, 0, 3000, 2000},      {2, 55, 1396, 843}},    // larger than the screen
        {{1500, 100, 1280, 720},  {1402, 25, 796, 573}},  // on the second screen
        {{9000, 9000, 1000, 600}, {398, 298, 1000, 600}}, // on a screen that was removed
    };
    // clang-format on
    for (const Row& row : rows)
        EXPECT_EQ(whollyShown(row.kept, frame, screens), row.shown) << row.kept.x();
    EXPECT_EQ(whollyShown({1, 2, 3, 4}, frame, {}), QRect(1, 2, 3, 4));
}

TEST(WindowClosing, LeavesNoHalfMovieBehindAndComesBackWhollyVisible) {
    constexpr double kIntoTheMovie = 2.2; ///< seconds, count-in included
    const test::TemporaryFolder folder;
    const auto folders = foundation::Folders::below(folder.path());
    foundation::UserDefaults(folders.config / "defaults.json")
        .set("WindowPlace", std::vector<std::string>{"900", "-200", "3000", "2000", "window"});
    const auto hasMovies = [&folder] {
        const std::filesystem::recursive_directory_iterator all(folder.path());
        return std::any_of(begin(all), end(all), [](const auto& file) {
            return file.path().extension() == ".mov";
        });
    };
    {
        Application application{folders};
        application.show();
        EXPECT_TRUE(
            application.window()->screen()->geometry().contains(application.window()->geometry()));
        ASSERT_TRUE(soon([&] { return application.main.stage.framesShown() > 0; }));
        application.main.showAnim();
        model::Model& model = application.model();
        model.setDuration(kLongRun);
        model.start();
        ASSERT_TRUE(soon([&] { return model.isPlaying() && model.time() > 0; }));
        qobject_cast<ui::ActionsMenu*>(application.main.panel())->pressButton(0);
        ASSERT_TRUE(soon([&] { return !model.actionController().recordedActions().empty(); }));
        application.main.share();
        auto* const sheet = qobject_cast<ui::ExportSettingsController*>(application.main.screen());
        ASSERT_NE(sheet, nullptr);
        sheet->setSize(static_cast<int>(sheet->sizes().size()) - 1);
        sheet->setOwnSize("160x90");
        sheet->start();
        ASSERT_TRUE(soon([&] { return model.isRecordingMovie() && model.time() > kIntoTheMovie; }));
    }
    EXPECT_FALSE(hasMovies());
}

} // namespace
} // namespace zelvo::app

int main(int argc, char** argv) {
    testing::InitGoogleTest(&argc, argv);
    zelvo::app::prepareGraphics();
    const QGuiApplication process(argc, argv);
    zelvo::test::failOnViewWarnings();
    return RUN_ALL_TESTS();
}
