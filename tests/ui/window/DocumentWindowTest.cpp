// SPDX-License-Identifier: MIT
// What a hand does in the real window, saved, and exported by the command line.
#include "platform/image/reading/ImageReader.h"
#include "ui/controls/Alerts.h"
#include "ui/window/WindowFixture.h"

#include <fmt/format.h>

#include <QFile>
#include <QProcess>

#include <cstdint>
#include <map>
#include <vector>

namespace zelvo::app {
namespace {

using test::soon;

constexpr render::Size kSize{160, 90};
constexpr int kFrames = 118; ///< of a movie of two seconds

class DocumentWindowTest : public test::WindowFixture {
protected:
    using Pictures = std::map<int, std::vector<std::uint8_t>>;

    void drag(const QPoint& from, const QPoint& to) {
        QTest::mousePress(&window, Qt::LeftButton, {}, from);
        for (int step = 1; step <= 5; ++step) {
            QTest::mouseMove(&window, from + (to - from) * step / 5);
            QTest::qWait(30);
        }
        QTest::mouseRelease(&window, Qt::LeftButton, {}, to);
    }

    /// Moves a text, turns and colours things by the random style, and undoes some of it.
    void style() {
        QTest::mouseClick(&window, Qt::LeftButton, {}, {420, 300});
        EXPECT_TRUE(soon(
            [&] { return panel<ui::LayouterMenu>()->currentNode() == model.nodes().textNode1; }));
        QTest::qWait(600); // the press that follows is no second tap
        const auto placeBefore = model.nodes().textNode1->layoutPosition();
        drag({420, 300}, {480, 270}); // the stem of the first letter
        EXPECT_TRUE(soon([&] { return model.nodes().textNode1->layoutPosition() != placeBefore; }));
        const auto placeAfter = model.nodes().textNode1->layoutPosition();
        QTest::qWait(500);
        drag({480, 270}, {400, 200});
        QTest::keyClick(&window, Qt::Key_Z, Qt::ControlModifier);
        EXPECT_TRUE(soon([&] { return model.nodes().textNode1->layoutPosition() == placeAfter; }))
            << "a drag is one step";
        QTest::keyClick(&window, Qt::Key_Z, Qt::ControlModifier);
        EXPECT_TRUE(soon([&] { return model.nodes().textNode1->layoutPosition() == placeBefore; }));
        QTest::keyClick(&window, Qt::Key_Z, Qt::ControlModifier | Qt::ShiftModifier);
        EXPECT_TRUE(soon([&] { return model.nodes().textNode1->layoutPosition() == placeAfter; }));
    }

    void record() {
        QTest::keyClick(&window, Qt::Key_F3);
        ASSERT_TRUE(soon([&] { return panel<ui::ActionsMenu>() != nullptr; }));
        ui::ActionsMenu& menu = *panel<ui::ActionsMenu>();
        QTest::keyClick(&window, Qt::Key_Space);
        ASSERT_TRUE(soon([&] { return model.time() > 1; }));
        QTest::keyClick(&window, Qt::Key_4);
        menu.tabButton("CAM").click();
        QTest::keyPress(&window, Qt::Key_1); // held
        ASSERT_TRUE(soon([&] { return model.time() > 2.2; }));
        QTest::keyClick(&window, Qt::Key_2); // draws random numbers
        drag({500, 200}, {560, 230});
        QTest::keyRelease(&window, Qt::Key_1);
        menu.tabButton("FX2").click();
        QTest::keyClick(&window, Qt::Key_1); // particles
        ASSERT_TRUE(soon([&] { return !model.isPlaying(); }));
        EXPECT_GE(model.actionController().recordedActions().size(), 6U);
    }

    [[nodiscard]] Pictures movieOfTheWindow() {
        Pictures pictures;
        std::optional<bool> isMade;
        auto& writer = model.movieWriter();
        writer.options.renderSize = kSize;
        writer.options.writesMovie = false;
        writer.options.tap = movie::FrameTap{
            .wants = [](int frame) { return frame >= 0 && frame < kFrames; },
            .take = [&](int frame, const render::FrameView& picture) -> foundation::Result<void> {
                pictures[frame].assign(picture.bytes.begin(), picture.bytes.end());
                return {};
            },
            .count = kFrames};
        const foundation::Lifetime listening;
        writer.completedSignal.subscribe(
            listening, [&](const auto& outcome) { isMade = outcome.has_value(); });
        EXPECT_TRUE(model.startMovie());
        EXPECT_TRUE(soon([&] { return isMade.has_value(); }));
        return pictures;
    }

    [[nodiscard]] bool isSavedTo(const std::filesystem::path& file) {
        auto& document = application.main.document;
        document.savePicked(QUrl::fromLocalFile(QString::fromStdString(file.string())));
        return soon([&] { return std::filesystem::exists(file) && !document.isModified(); });
    }
};

} // namespace

TEST_F(DocumentWindowTest, IsOpenedBySuffixTellsItsNameAndAsksBeforeTheWindowCloses) {
    const auto file = folder.path() / "Night Run.zelvo";
    QFile saved(QString::fromStdString(file.string()));
    ASSERT_TRUE(saved.open(QIODevice::WriteOnly));
    saved.write(R"({"nodes": {"TX1": {"text": "FROM FILE"}}, "cues": []})");
    saved.close();
    application.open({file});
    ASSERT_TRUE(soon([&] { return model.nodes().textNode1->text() == "FROM FILE"; }));
    EXPECT_TRUE(soon([&] { return window.title() == "Night Run"; }));
    ASSERT_TRUE(isDrawn());

    QTest::keyClick(&window, Qt::Key_Tab);
    QTest::keyClick(&window, Qt::Key_Right);
    EXPECT_TRUE(soon([&] { return window.title() == "Night Run •"; }));
    auto& alerts = *application.main.alertsObject();
    EXPECT_FALSE(window.close());
    ASSERT_TRUE(soon([&] { return alerts.isShowing(); }));
    QTest::keyClick(&window, Qt::Key_Escape);
    EXPECT_TRUE(soon([&] { return !alerts.isShowing(); }));
    EXPECT_TRUE(window.isVisible());
    EXPECT_FALSE(window.close());
    ASSERT_TRUE(soon([&] { return alerts.isShowing(); }));
    QTest::keyClick(&window, Qt::Key_Return); // "Save" has the focus
    EXPECT_TRUE(soon([&] { return !window.isVisible(); }));
    EXPECT_TRUE(std::filesystem::file_size(file) > 200) << "all fields are written now";
}

TEST_F(DocumentWindowTest, HasTheFramesThatTheCommandLineMakesOfTheSavedFile) {
    ASSERT_TRUE(isReady());
    model.setDuration(model::Model::kMinDuration);
    style();
    record();
    const Pictures wanted = movieOfTheWindow();
    ASSERT_EQ(wanted.size(), std::size_t{kFrames});

    const auto file = folder.path() / "hand.zelvo";
    ASSERT_TRUE(isSavedTo(file));
    const auto frames = folder.path() / "frames";
    QProcess program;
    program.setProcessChannelMode(QProcess::ForwardedChannels);
    program.start(
        ZELVO_BINARY,
        {"perform",
         QString::fromStdString(file.string()),
         "--frames",
         QString::fromStdString(frames.string()),
         "--size",
         "160x90"});
    ASSERT_TRUE(program.waitForFinished(120'000));
    ASSERT_EQ(program.exitCode(), 0);
    for (const auto& [number, pixels] : wanted) {
        const auto picture = image::loadImage(frames / fmt::format("frame_{:05}.png", number));
        ASSERT_TRUE(picture) << picture.error().message;
        EXPECT_TRUE((*picture)->pixels == pixels) << "frame " << number;
    }
}

} // namespace zelvo::app
