// SPDX-License-Identifier: MIT
#pragma once

#include "export/FakeFrames.h"
#include "export/MovieWriter.h"
#include "media/MediaFixture.h"
#include "shared/FrameClock.h"
#include "support/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <fstream>
#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace zelvo::test {

/// A movie writer whose owner is the test. It has a clock on the virtual run loop, music, and a
/// list of alerts.
class MovieWriterTest : public testing::Test, public movie::MovieWriterOwner {
protected:
    MovieWriterTest() {
        writer.options.renderSize = {64, 36};
        writer.completedSignal.subscribe(
            listening,
            [this](const foundation::Result<movie::MovieOutcome>& made) { outcome = made; });
        writer.showVideoSignal.subscribe(listening, [this] { ++videosShown; });
    }

    // --- the owner of the writer
    void start() override {
        int frame = -6;
        ticks = loop.scheduleRepeating(FrameClock::kStep, [this, frame]() mutable {
            writer.renderFrame(frame);
            if (writer.isRecording() && frame >= FrameClock::frameReaching(length))
                writer.finish();
            ++frame;
        });
    }

    void stopAndReset() override { ticks.invalidate(); }

    void attachScene(movie::SceneHome home) override { sceneHome = home; }

    [[nodiscard]] foundation::RunLoop& runLoop() override { return loop; }

    [[nodiscard]] double duration() const override { return length; }

    [[nodiscard]] std::optional<movie::MusicStretch> music() const override {
        isMuxing = true; // the writer asks for music when it joins it
        return song;
    }

    void showAlert(const std::string& title, const std::string& message) override {
        alerts.emplace_back(title, message);
    }

    // --- for the tests
    /// Exports a movie and waits for the outcome.
    void exportMovie() {
        outcome.reset();
        const auto started = writer.start();
        ASSERT_TRUE(started) << started.error().message;
        waitForOutcome();
    }

    void waitForOutcome() {
        const foundation::Timer waiting = loop.expectPosts();
        ASSERT_TRUE(loop.runUntil([this] { return outcome.has_value(); }));
    }

    void writeEarlierMovie() { std::ofstream(writer.movieURL()) << "earlier"; }

    [[nodiscard]] bool hasEarlierMovie() const {
        std::string text;
        std::ifstream(writer.movieURL()) >> text;
        return text == "earlier";
    }

    [[nodiscard]] static std::vector<std::string> filesIn(const std::filesystem::path& place) {
        std::vector<std::string> names;
        std::error_code missing;
        for (const auto& entry : std::filesystem::directory_iterator(place, missing))
            names.push_back(entry.path().filename());
        std::ranges::sort(names);
        return names;
    }

    using FrameClock = shared::FrameClock;

    TemporaryFolder folder;
    foundation::Folders folders = foundation::Folders::below(folder.path());
    foundation::VirtualRunLoop loop;
    FakeRendering rendering;
    double length = 2;
    std::optional<movie::MusicStretch> song;
    std::vector<std::pair<std::string, std::string>> alerts;
    movie::SceneHome sceneHome = movie::SceneHome::screen;
    foundation::Timer ticks;
    std::optional<foundation::Result<movie::MovieOutcome>> outcome;
    int videosShown = 0;
    mutable bool isMuxing = false;
    foundation::Lifetime listening;
    movie::MovieWriter writer{
        *this, folders, [this] { return std::make_unique<FakeFrames>(rendering); }};
};

} // namespace zelvo::test
