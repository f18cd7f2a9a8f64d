// SPDX-License-Identifier: MIT
// The stage of a parked clock, against the movie.
#include "app/Engine.h"
#include "document/EngineNames.h"
#include "document/PerformanceFile.h"
#include "document/Performer.h"
#include "document/SetUp.h"
#include "document/Templates.h"
#include "platform/render/SCNRenderer.h"
#include "support/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdint>
#include <map>
#include <memory>
#include <random>
#include <string>
#include <vector>

namespace zelvo {

namespace {

using Bytes = std::vector<std::uint8_t>;
using Pictures = std::map<int, Bytes>; ///< by frame

constexpr render::Size kSize{160, 90};

class ScrubTest : public testing::TestWithParam<const char*> {
protected:
    void open(const std::string& name) {
        const auto file = document::templateFile(name);
        ASSERT_TRUE(file) << file.error().message;
        const auto read = document::loadPerformance(*file, document::engineNames());
        ASSERT_TRUE(read) << read.error().front();
        ASSERT_TRUE(document::setUp(*read, file->parent_path(), engine.model()));
        document::perform(*read, engine.model());
        loop.runFor(1); // the opening animation has ended
    }

    /// Frames of the movie.
    [[nodiscard]] Pictures exported(const std::vector<int>& frames) {
        Pictures pictures;
        auto& writer = engine.model().movieWriter();
        writer.options.renderSize = kSize;
        writer.options.writesMovie = false;
        writer.options.tap = movie::FrameTap{
            .wants = [&](int frame) { return std::ranges::find(frames, frame) != frames.end(); },
            .take = [&](int frame, const render::FrameView& picture) -> foundation::Result<void> {
                pictures[frame] = Bytes(picture.bytes.begin(), picture.bytes.end());
                return {};
            },
            .count = static_cast<int>(frames.size())};
        EXPECT_TRUE(engine.model().startMovie());
        const foundation::Timer waiting = loop.expectPosts();
        (void)loop.runUntil([&] { return pictures.size() == frames.size(); });
        engine.model().cancelMovie();
        loop.runFor(0.5);
        return pictures;
    }

    /// What the view of a parked clock shows.
    [[nodiscard]] Bytes parkedAt(int frame) {
        engine.model().seek(shared::FrameClock::secondsOf(frame));
        const scene::SCNSceneRenderer& view = *engine.model().sceneView();
        renderer->setScene(view.scene());
        renderer->technique = view.technique;
        renderer->begin({.time = view.scene()->time(), .outputSize = kSize});
        const render::FrameView picture = renderer->finish();
        return {picture.bytes.begin(), picture.bytes.end()};
    }

    foundation::VirtualRunLoop loop;
    test::TemporaryFolder folder;
    app::Engine engine{loop, foundation::Folders::below(folder.path()), 1};
    std::unique_ptr<render::SCNRenderer> renderer = std::move(*render::SCNRenderer::make());
};

} // namespace

TEST_P(ScrubTest, ShowsTheFramesOfTheMovieInAnyOrder) {
    open(GetParam());
    std::mt19937 draw(7);
    std::vector<int> frames{0};
    while (frames.size() < 8)
        frames.push_back(static_cast<int>(draw() % 300));
    const Pictures movie = exported(frames);
    for (const int frame : frames)
        EXPECT_EQ(parkedAt(frame), movie.at(frame)) << "frame " << frame;
    engine.model().actionController().deleteAll();
    EXPECT_NE(parkedAt(frames.back()), movie.at(frames.back()));
}

INSTANTIATE_TEST_SUITE_P(Templates, ScrubTest, testing::Values("night", "gaming", "horror"));

} // namespace zelvo
