// SPDX-License-Identifier: MIT
#include "app/Performer.h"

#include "app/EngineNames.h"
#include "app/StageStyling.h"
#include "catalogue/Catalogue.h"
#include "platform/foundation/Check.h"
#include "platform/foundation/Lifetime.h"
#include "platform/media/AVAsset.h"
#include "shared/FrameClock.h"
#include "shared/Signal.h"

#include <fmt/format.h>

#include <algorithm>
#include <cmath>
#include <functional>
#include <map>
#include <string_view>
#include <utility>

namespace zelvo::app {

namespace {

using actions::GestureState;
using shared::FrameClock;

[[nodiscard]] model::AnimationRatio speedTitled(std::string_view title) {
    const auto* const row = std::ranges::find(model::kSpeeds, title, &model::SpeedRow::title);
    CHECK(row != model::kSpeeds.end(), "no speed is called {}", title);
    return row->ratio;
}

[[nodiscard]] audio::FadeState fadeNamed(std::string_view name) {
    const auto* const row = std::ranges::find(audio::kFades, name, &audio::FadeRow::name);
    CHECK(row != audio::kFades.end(), "no fade is called {}", name);
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

[[nodiscard]] foundation::Result<void> takeStretch(const Music& music, model::Model& model) {
    auto& player = model.audioPlayer();
    const double length = player.totalDuration;
    if (length <= 0)
        return {}; // it cannot be decoded; the export makes a silent movie and says so
    const double end = music.end.value_or(std::min(length, music.in + model.duration()));
    // The file may give the end of the song in rounded seconds.
    constexpr double kRounding = 0.05;
    // A short one, such as that of a video, is played as a whole.
    const double least = std::min(kMinStretch, length);
    if (end > length + kRounding || music.in + least > length + kRounding) {
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

/// Interpolates between values at equal distances: 0 is the first value, 1 the last.
template <class Value> Value along(const std::vector<Value>& values, double share) {
    const double place = share * static_cast<double>(values.size() - 1);
    const auto before = static_cast<std::size_t>(place);
    if (before + 1 >= values.size())
        return values.back();
    return values[before] + (values[before + 1] - values[before]) * (place - std::floor(place));
}

/// Performs the cues during a run.
class Hand {
public:
    Hand(const Performance& score, Engine& played)
        : performance(score)
        , engine(played) {}

    /// Performs all cues that are due at `time` of the clock (seconds since the count-in began).
    void pressDue(double time) {
        const auto& cues = performance.cues;
        const double movieTime = time - engine.model().startCounter();
        while (next < cues.size() && FrameClock::hasCome(cues[next].at, movieTime)) {
            goOn(cues[next].at);
            now = cues[next].at;
            std::visit([this](const auto& what) { act(what); }, cues[next++].act);
        }
        goOn(movieTime);
    }

private:
    /// Performs the later steps of cues (moves and releases) that are due.
    void goOn(double movieTime) {
        while (!later.empty() && FrameClock::hasCome(later.begin()->first, movieTime))
            later.extract(later.begin()).mapped()();
    }

    void act(const Undo&) { controller().undo(); }

    void act(const Redo&) { controller().redo(); }

    void act(const DoubleTap&) { gestures().doubleTap(); }

    void act(const Pan& cue) {
        touch({now, cue.lasts, [this, points = cue.points](GestureState state, double share) {
                   gestures().pan(state, glm::vec2(along(points, share)));
               }});
    }

    void act(const Pinch& cue) {
        touch(
            {now, cue.lasts, [this, velocities = cue.velocities](GestureState state, double share) {
                 gestures().pinch(state, static_cast<float>(along(velocities, share)));
             }});
    }

    /// A gesture in progress.
    struct Fingers {
        double cameDown = 0; ///< seconds of the movie
        double lasts = 0;
        std::function<void(GestureState, double share)> touch;

        [[nodiscard]] int lastNumber() const {
            return std::max(1, FrameClock::nearestFrame(lasts));
        }
    };

    /// Sends a touch in every frame, like a touch screen; the last one lifts the fingers. Each
    /// touch adds only the next one to `later`, so that a long gesture needs one entry there.
    void touch(const Fingers& fingers, int number = 0) {
        const int last = fingers.lastNumber();
        const double share = static_cast<double>(number) / last;
        later.emplace(fingers.cameDown + share * fingers.lasts, [=, this] {
            fingers.touch(number == 0 ? GestureState::began : GestureState::changed, share);
            if (number < last) {
                touch(fingers, number + 1);
            } else {
                fingers.touch(GestureState::ended, share);
            }
        });
    }

    void act(const Press& cue) {
        const auto* const tab = catalogue::tabNamed(cue.tab);
        CHECK(tab != nullptr, "no tab is called {}", cue.tab);
        const auto buttons = tab->buttons();
        const auto button = std::ranges::find(buttons, cue.title, &catalogue::Button::title);
        CHECK(button != buttons.end(), "no button of tab {} is called {}", cue.tab, cue.title);
        auto context = contextOf(cue);
        button->beganFunc(context);
        if (!cue.held)
            return;
        context.animationFactor = engine.model().animationFactor();
        later.emplace(now + *cue.held, [held = *button, context] { held.endFunc(context); });
    }

    [[nodiscard]] catalogue::PressContext contextOf(const Press& cue) {
        const auto& model = engine.model();
        return {
            .controller = model.actionController(),
            .affectedNodes = nodesOf(cue),
            .animationFactor = cue.speed ? model::speedOf(speedTitled(*cue.speed)).animationFactor
                                         : model.animationFactor()};
    }

    [[nodiscard]] std::vector<node::NodePtr> nodesOf(const Press& cue) {
        auto& stage = engine.stage();
        if (cue.nodes.empty())
            return stage.content();
        std::vector<node::NodePtr> nodes;
        for (const auto& name : cue.nodes)
            nodes.push_back(nodeNamed(name, stage));
        return nodes;
    }

    [[nodiscard]] actions::ActionController& controller() const {
        return engine.model().actionController();
    }

    [[nodiscard]] actions::Gestures& gestures() const { return controller().gestures; }

    const Performance& performance;
    Engine& engine;
    /// What is still to do, by seconds of the movie. Calls of the same time keep their order.
    std::multimap<double, std::function<void()>> later;
    double now = 0; ///< time of the current cue, seconds of the movie
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
    if (performance.speed)
        model.animationRatio = speedTitled(*performance.speed);
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
    const foundation::Lifetime listening;
    ui::signals().timeSignal.subscribe(listening, [&](const ui::TimeState& state) {
        if (model.isPlaying())
            hand.pressDue(state.time);
    });
    model.start();
    hand.pressDue(0);
    (void)engine.runLoop.runUntil([&] { return !model.isPlaying(); });
}

} // namespace zelvo::app
