// SPDX-License-Identifier: MIT
#include "Loop.h"

#include "../frames/FrameRows.h"
#include "app/Engine.h"
#include "catalogue/ActionLoop.h"
#include "document/SetUp.h"
#include "platform/foundation/Check.h"
#include "ui/controls/GroupColors.h"

#include <QImage>

#include <algorithm>
#include <array>
#include <cstdlib>
#include <vector>

namespace zelvo::loops {

using catalogue::ActionLoop;
using catalogue::Group;

namespace {

constexpr auto kWord = "TITLE";
constexpr double kWordScale = 1.5;
constexpr double kLeadIn = 0.6;    // seconds until the stage is at rest
constexpr int kPassing = 4;        // frames in which the end passes into the beginning
constexpr int kPressed = 5;        // the frame before which the button is pressed
constexpr int kReleased = 18;      // the frame before which a held button is released
constexpr int kRest = 4;           // frames after the last one that moves
constexpr int kUpdates = 3;        // updates of the scene in a frame
constexpr std::uint32_t kSeed = 2; // of what a button draws at random
constexpr double kOversampling = 1.5;
constexpr int kMaxFrames = ActionLoop::kColumns * ActionLoop::kMaxRows;

/// A press moves the text alone, so its stage is empty. A move of the camera shows by what stands
/// behind the text, and light shows in the dark.
struct Setting {
    Group group;
    const char* scene;
    std::uint32_t background;
};

constexpr auto kSettings = std::to_array<Setting>({
    {Group::in, "Plain", 0x3A4152},
    {Group::letters, "Plain", 0x3A4152},
    {Group::turns, "Plain", 0x3A4152},
    {Group::camera, "Subtle", 0x6A5ACD},
    {Group::effects, "Plain", 0x14161C},
    {Group::out, "Plain", 0x3A4152},
});
static_assert(kSettings.size() == catalogue::kGroups);

[[nodiscard]] image::Color colorOf(Group group) {
    return image::Color::hex(ui::groupColor(group).rgb() & 0xFFFFFFU);
}

[[nodiscard]] document::Style styleOf(Group group) {
    const Setting& setting = kSettings.at(static_cast<std::size_t>(group));
    CHECK(setting.group == group, "the settings are not in the order of the groups");
    document::Style style;
    style.scene = setting.scene;
    style.background = image::Color::hex(setting.background);
    document::TextStyle& word = style.nodes["TX1"];
    word.text = kWord;
    word.position = glm::dvec3(0);
    word.scale = kWordScale;
    word.material = "Plain";
    word.frontColor = image::Color::white(0.95F);
    word.bandColor = colorOf(group);
    style.nodes["TX2"].visible = false;
    style.picture.emplace().visible = false;
    style.object.emplace().visible = false;
    return style;
}

/// A stage of its own for one button, so that nothing is left of the button before.
class Take {
public:
    Take(render::SCNRenderer& camera, const std::filesystem::path& temporary, Group group)
        : renderer(camera)
        , engine(loop, foundation::Folders::below(temporary), kSeed) {
        auto& model = engine.model();
        model.setSceneView(&renderer);
        const auto ready = document::setUp(styleOf(group), {}, model);
        CHECK(ready, "the stage of the loops: {}", ready.error().text);
        for (double end = time + kLeadIn; time < end;)
            goOn();
    }

    ~Take() { engine.model().setSceneView(nullptr); }

    Take(const Take&) = delete;
    Take& operator=(const Take&) = delete;

    [[nodiscard]] std::vector<QImage>
    film(const catalogue::Tab& tab, const catalogue::Button& button) {
        std::vector<QImage> frames;
        for (int i = 0; i < kMaxFrames + kPassing; ++i) {
            if (i == kPressed)
                catalogue::press(tab, button, context(), kSeed);
            if (i == kReleased && button.isHold())
                catalogue::release(button, context());
            for (int update = 0; update < kUpdates; ++update)
                goOn();
            frames.push_back(picture());
        }
        return frames;
    }

private:
    [[nodiscard]] catalogue::PressContext context() {
        auto& model = engine.model();
        return {model.actionController(), {engine.stage().textNode1}, model.animationFactor()};
    }

    void goOn() {
        constexpr double kStep = 1.0 / (ActionLoop::kFramesPerSecond * kUpdates);
        loop.runFor(kStep);
        time += kStep;
        renderer.update(time);
    }

    [[nodiscard]] QImage picture() {
        const auto drawn = renderer.snapshotAtTime(
            time, {ActionLoop::kWidth, ActionLoop::kHeight}, {.oversampling = kOversampling});
        return QImage(drawn.pixels.data(), drawn.width, drawn.height, QImage::Format_RGBX8888)
            .copy();
    }

    render::SCNRenderer& renderer;
    foundation::VirtualRunLoop loop;
    app::Engine engine;
    double time = 0; ///< of the scene, seconds
};

[[nodiscard]] bool moves(const QImage& before, const QImage& after) {
    constexpr int kNoise = 12; // levels; smooth edges and light flicker that much
    for (int y = 0; y < after.height(); ++y) {
        for (int x = 0; x < after.width(); ++x) {
            if (std::abs(qGray(before.pixel(x, y)) - qGray(after.pixel(x, y))) > kNoise)
                return true;
        }
    }
    return false;
}

/// So many rows that the action ends in them, if it is not too long.
[[nodiscard]] int rowsFor(const std::vector<QImage>& frames) {
    int last = kPressed;
    for (int i = kPressed + 1; i < kMaxFrames; ++i) {
        const auto at = static_cast<std::size_t>(i);
        if (moves(frames[at - 1], frames[at]))
            last = i;
    }
    const int needed = (last + kRest + ActionLoop::kColumns) / ActionLoop::kColumns;
    return std::clamp(needed, ActionLoop::kMinRows, ActionLoop::kMaxRows);
}

} // namespace

QByteArray makeLoop(
    render::SCNRenderer& renderer,
    const std::filesystem::path& temporary,
    const catalogue::Tab& tab,
    const catalogue::Button& button) {
    constexpr int kQuality = 84;
    Take take(renderer, temporary, tab.group);
    const std::vector<QImage> film = take.film(tab, button);
    const frames::Rows rows{ActionLoop::kColumns, rowsFor(film) * ActionLoop::kColumns, kPassing};
    return frames::packed(frames::inRows(film, rows), kQuality, ActionLoop::kMaxBytes);
}

} // namespace zelvo::loops
