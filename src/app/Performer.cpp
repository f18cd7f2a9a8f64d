// SPDX-License-Identifier: MIT
#include "app/Performer.h"

#include "app/EngineNames.h"
#include "app/StageStyling.h"
#include "catalogue/Catalogue.h"
#include "platform/foundation/Check.h"
#include "platform/media/AVAsset.h"
#include "ui/shared/Signal.h"

#include <fmt/format.h>

#include <algorithm>
#include <array>
#include <memory>
#include <string_view>
#include <utility>

namespace zelvo::app {

namespace {

/// Times of cues that lie this far behind a tick still belong to it; seconds.
constexpr double kNear = core::Model::kStep / 3;
/// The shortest stretch of music, seconds.
constexpr double kMinStretch = 2.0;

struct FadeRow {
    std::string_view name;
    audio::FadeState state;
};

constexpr auto kFades = std::to_array<FadeRow>({
    {"noFade",    audio::FadeState::noFade   },
    {"fadeIn",    audio::FadeState::fadeIn   },
    {"fadeOut",   audio::FadeState::fadeOut  },
    {"fadeInOut", audio::FadeState::fadeInOut},
});

[[nodiscard]] core::AnimationRatio speedTitled(std::string_view title) {
    const auto* const row = std::ranges::find(core::kSpeeds, title, &core::SpeedRow::title);
    CHECK(row != core::kSpeeds.end(), "no speed is called {}", title);
    return row->ratio;
}

[[nodiscard]] audio::FadeState fadeNamed(std::string_view name) {
    const auto* const row = std::ranges::find(kFades, name, &FadeRow::name);
    CHECK(row != kFades.end(), "no fade is called {}", name);
    return row->state;
}

[[nodiscard]] foundation::Result<void> checkSong(const std::filesystem::path& file) {
    const auto asset = media::AVAsset::open(file);
    if (!asset)
        return tl::unexpected(asset.error());
    if (!asset->tracksWithMediaType(media::MediaType::audio).empty())
        return {};
    return foundation::fail(
        foundation::Cause::malformed, file.string() + ": there is no sound in it");
}

[[nodiscard]] foundation::Result<void> takeStretch(const Music& music, core::Model& model) {
    auto& player = model.audioPlayer();
    const double length = player.totalDuration;
    const double end = music.end.value_or(std::min(length, music.in + model.duration()));
    // A stretch that ends with the song may be told in rounded seconds.
    constexpr double kRounding = 0.05;
    if (end > length + kRounding || music.in + kMinStretch > length + kRounding) {
        return foundation::fail(
            foundation::Cause::malformed,
            fmt::format(
                "the song lasts {:.2f} seconds; \"in\" and \"end\" must lie within it, at least {} "
                "seconds apart",
                length,
                kMinStretch));
    }
    player.audioIn = music.in;
    player.audioEnd = std::min(end, length);
    player.audioPreRoll = music.preRoll;
    if (music.fade)
        player.fadeState = fadeNamed(*music.fade);
    return {};
}

/// Presses the cues in the course of a run.
class Hand {
public:
    Hand(const Performance& score, Engine& played)
        : performance(score)
        , engine(played)
        , usualSpeed(score.speed ? speedTitled(*score.speed) : engine.model().animationRatio) {}

    /// All cues up to the clock's time that have not been pressed yet.
    void pressDue(double time) {
        const auto& cues = performance.cues;
        const double movieTime = time - engine.model().startCounter();
        while (next < cues.size() && cues[next].at - kNear <= movieTime) {
            liftOffDue(cues[next].at);
            now = cues[next].at;
            const auto& act = cues[next++].act;
            if (const auto* const what = std::get_if<Press>(&act)) {
                press(*what);
            } else if (std::holds_alternative<Undo>(act)) {
                engine.model().actionController().undo();
            } else {
                engine.model().actionController().redo();
            }
        }
        liftOffDue(movieTime);
    }

private:
    /// A button that the hand has not let go of yet.
    struct Held {
        double until = 0; ///< seconds of the movie
        catalogue::Button button;
        std::vector<core::NodePtr> nodes;
    };

    /// In the order of their times; those of one time in the order of pressing.
    void liftOffDue(double movieTime) {
        std::ranges::stable_sort(held, {}, &Held::until);
        while (!held.empty() && held.front().until - kNear <= movieTime) {
            const Held done = std::move(held.front());
            held.erase(held.begin());
            engine.model().setAffectedNodes(done.nodes);
            done.button.endFunc(engine.model().actionController());
        }
    }

    void press(const Press& cue) {
        auto& model = engine.model();
        model.setAffectedNodes(nodesOf(cue));
        model.animationRatio = cue.speed ? speedTitled(*cue.speed) : usualSpeed;
        const auto* const tab = catalogue::tabNamed(cue.tab);
        CHECK(tab != nullptr, "no tab is called {}", cue.tab);
        const auto buttons = tab->buttons();
        const auto button = std::ranges::find(buttons, cue.title, &catalogue::Button::title);
        CHECK(button != buttons.end(), "no button of tab {} is called {}", cue.tab, cue.title);
        button->beganFunc(model.actionController());
        if (cue.held)
            held.push_back({now + *cue.held, *button, model.affectedNodes()});
        model.animationRatio = usualSpeed;
    }

    [[nodiscard]] std::vector<core::NodePtr> nodesOf(const Press& cue) {
        auto& stage = engine.stage();
        if (cue.nodes.empty()) {
            return {stage.textNode1, stage.textNode2, stage.imageNode, stage.mediaNode};
        }
        std::vector<core::NodePtr> nodes;
        for (const auto& name : cue.nodes)
            nodes.push_back(nodeNamed(name, stage));
        return nodes;
    }

    const Performance& performance;
    Engine& engine;
    core::AnimationRatio usualSpeed;
    std::vector<Held> held;
    double now = 0; ///< of the cue at hand, seconds of the movie
    std::size_t next = 0;
};

} // namespace

foundation::Result<void>
setUp(const Performance& performance, const std::filesystem::path& folder, Engine& engine) {
    auto& model = engine.model();
    if (auto styled = styleContent(performance, folder, engine.stage()); !styled)
        return styled;
    if (performance.duration)
        model.setDuration(*performance.duration);
    if (performance.scene)
        model.setScene(sceneIndexOf(*performance.scene));
    if (performance.background)
        model.setCurrentBackgroundColor(*performance.background);
    if (!performance.music)
        return {};

    const auto& music = *performance.music;
    const auto song = folder / music.file;
    auto taken = checkSong(song);
    if (taken) {
        model.audioPlayer().loadSong(song, song.stem().string());
        taken = takeStretch(music, model);
    }
    if (!taken)
        return tl::unexpected(taken.error().in(std::to_string(music.line)));
    return {};
}

void perform(const Performance& performance, Engine& engine) {
    auto& model = engine.model();
    Hand hand(performance, engine);
    const auto listening = std::make_shared<const bool>(true);
    ui::signals().timeSignal.subscribe(listening, [&](const ui::TimeState& state) {
        if (model.isPlaying())
            hand.pressDue(state.time);
    });
    model.start();
    hand.pressDue(0);
    (void)engine.runLoop.runUntil([&] { return !model.isPlaying(); });
}

} // namespace zelvo::app
