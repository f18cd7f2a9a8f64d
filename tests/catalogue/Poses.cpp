// SPDX-License-Identifier: MIT
#include "catalogue/Poses.h"

#include "platform/scene/SCNTechnique.h"

#include <fmt/format.h>

#include <array>
#include <cmath>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iomanip>
#include <sstream>

namespace zelvo::test {

namespace {

/// In sixteenths of the length; most happens soon after the start.
constexpr auto kMoments = std::to_array<std::size_t>({0, 1, 4, 8, 12, 15, 16});

constexpr auto kHeading =
    R"(# What each button of the catalogue does: of all that moves, the values at 0, 1, 4, 8, 12, 15 and
# 16 sixteenths of its length. "=" is as before, "-" is not there; a single value stays. Places are
# scene units, turns are degrees. The texts are ABC and DE. The base duration is 0.85 s, a frame
# 1/64 s. What takes seconds of its own stands here a second time as "quick": at a quarter of the
# base duration, in frames of 1/256 s.
#   needs nodes     without one that it works on, a press does nothing
#   drawn anew      each replay has random values of its own
#   begins at home  whatever runs before
)";

constexpr auto kOtherLine = "another line";

/// The values of a new node, which snapshots leave out for permanent nodes.
// clang-format off
const std::map<std::string, std::vector<double>> kNewNode = {
    {"at",        {0, 0, 0}      },
    {"turned",    {0, 0, 0}      },
    {"size %",    {100, 100, 100}},
    {"opacity %", {100}          },
};

// clang-format on

/// Nodes that come and go are named after their parent.
bool isPassing(const std::string& who) {
    return who.ends_with('/');
}

std::string columnOf(const std::vector<double>& values) {
    std::ostringstream text;
    for (const double value : values)
        text << ' ' << std::setprecision(9) << std::round(value * 10) / 10 + 0.0; // 0, not -0
    return values.empty() ? " -" : text.str();
}

/// What differs between two lines, in words; empty if nothing does. Different rounding is allowed.
std::string difference(const std::string& seen, const std::string& wanted) {
    std::istringstream ones(seen), others(wanted);
    std::size_t moment = 0;
    for (std::string one, other; (ones >> one, others >> other, ones || others);) {
        moment += one == "|" ? 1 : 0;
        if (one == other)
            continue;
        char* oneEnd = nullptr;
        char* otherEnd = nullptr;
        const double is = std::strtod(one.c_str(), &oneEnd);
        const double should = std::strtod(other.c_str(), &otherEnd);
        if (*oneEnd != 0 || *otherEnd != 0 || !ones || !others)
            return kOtherLine;
        if (std::abs(is - should) > 0.15 + 1e-4 * std::abs(should))
            return fmt::format("at {}/16: {}, not {}", kMoments.at(moment), one, other);
    }
    return {};
}

} // namespace

PosesTest::PosesTest() {
    plays = true;
    nodes.textNode1->setText("ABC");
    nodes.textNode2->setText("DE");
    // Off the axes, so that replacing a coordinate and adding to it give different results.
    for (const auto& text : {nodes.textNode1, nodes.textNode2}) {
        for (const content::CharNodePtr& letter : text->letters())
            letter->originalPosition = *letter->originalPosition + glm::vec3(0, 7, 3);
    }
    nameWhatStays();
    clearStage();
}

void PosesTest::nameWhatStays() {
    // clang-format off
    names = {
        {nodes.mediaHolderNode.get(),                "stage"         },
        {nodes.mediaHolderNode->xAxisNode.get(),     "stage-x"       },
        {nodes.mediaHolderNode->yAxisNode.get(),     "stage-y"       },
        {nodes.mediaHolderNode->zAxisNode.get(),     "stage-z"       },
        {nodes.cameraNode.get(),                     "camera"        },
        {nodes.cameraSpecialPerspectiveNode.get(),   "camera-special"},
        {nodes.cameraWiggle.get(),                   "camera-wiggle" },
        {nodes.particleAndParticleLightHolder.get(), "effects"       },
        {nodes.wosherSparkles.get(),                 "Sparkles"      },
    };
    // clang-format on
    for (const node::NodePtr& node : affected) {
        names[node.get()] = node->shortName;
        names[node->contentNode.get()] = node->shortName + "-content";
        names[node->shyNode.get()] = node->shortName + "-shy";
    }
    char letter = 'A';
    for (const auto& text : {nodes.textNode1, nodes.textNode2}) {
        for (const content::CharNodePtr& node : text->letters())
            names[node.get()] = letter++;
    }
    // clang-format off
    const std::map<std::string, const stage::ParticleList*> lists = {
        {"FireExplo",         &nodes.fireExplo          },
        {"DropExplo",         &nodes.particleBigDropExpo},
        {"Explo2",            &nodes.particleExplo2     },
        {"Explo3",            &nodes.particleExplo3     },
        {"Clouds",            &nodes.particleClouds     },
        {"LightBeams",        &nodes.lightBeams         },
        {"GeometryParticles", &nodes.geometryParticles  },
        {"ColorfulBeams",     &nodes.colorfulBeams      },
        {"Voltage",           &nodes.particleVoltage    },
    };
    // clang-format on
    for (const auto& [name, list] : lists) {
        for (const auto& system : *list)
            names[system.get()] = name;
    }
    int number = 0;
    stage.rootNode()->enumerateHierarchy([&](const scene::SCNNode& node) {
        names.try_emplace(&node, "node-" + std::to_string(number++));
    });
}

void PosesTest::clearStage() {
    controller.resetAll(actions::CameraHandles::include);
    controller.techniques.endAll();
    nodes.particleAndParticleLightHolder->removeAllParticleSystems();
    nextFrame();
    foundation::seedRandom(1);
}

std::string PosesTest::perform(const catalogue::Button& button, Performance performance) {
    const std::string title(button.title);
    const Snapshot rest = lookAtStage();
    if (performance == Performance::first) {
        while (!controller.recordedActions().empty())
            controller.removeActions(controller.recordedActions().front()->identifier);
    }
    controller.markAllNotRun();
    const auto hear = [&](double time, const auto& press, const std::string& as) {
        clock = time;
        if (performance == Performance::first)
            press(context());
        else
            controller.run(time);
        return watch(as, rest);
    };
    if (!button.isHold())
        return hear(1, button.beganFunc, title);
    const std::string held = hear(1, button.beganFunc, title + ", held");
    return held + hear(2, button.endFunc, title + ", let go");
}

void PosesTest::look(const scene::SCNNode& node, const std::string& who, Snapshot& into) const {
    const auto add = [&](const std::string& what, const Values& values) {
        const auto usual = kNewNode.find(what);
        if (isPassing(who) || usual == kNewNode.end() || values != usual->second)
            into.emplace_back(Key{who, what}, values);
    };
    const bool isAnimated = node.presentedOrientation() != node.orientation();
    const glm::vec3 at = node.presentedPosition();
    const glm::vec3 size = node.scale.presented() * 100.0f;
    const glm::vec3 turn = glm::degrees(
        isAnimated ? scene::eulerAnglesFromOrientation(node.presentedOrientation())
                   : node.eulerAngles());
    add("at", {at.x, at.y, at.z});
    add("turned", {turn.x, turn.y, turn.z});
    add("size %", {size.x, size.y, size.z});
    add("opacity %", {node.opacity.presented() * 100});
    if (isPassing(who)) {
        if (const auto light = node.light) {
            const image::Color& c = light->color;
            add(light->type == scene::SCNLightType::omni ? "omni light" : "other light",
                {light->intensity.presented()});
            add("light's mask, reach, cone, colour %",
                {light->categoryBitMask + 0.0,
                 light->zFar,
                 light->spotOuterAngle,
                 c.red * 100,
                 c.green * 100,
                 c.blue * 100});
        }
        if (node.geometry != nullptr) {
            const glm::vec3 half = node.geometry->boundingBox().max;
            add("half width, half height, mask", {half.x, half.y, node.categoryBitMask + 0.0});
        }
    }
    std::map<std::string, double> particles;
    for (const auto& system : node.particleSystems())
        ++particles[names.at(system.get())];
    for (const auto& [name, count] : particles)
        add("particles " + name, {count});
    for (const scene::SCNNodePtr& child : node.childNodes()) {
        const auto name = names.find(child.get());
        look(*child, name == names.end() ? who + '/' : name->second, into);
    }
}

PosesTest::Snapshot PosesTest::lookAtStage() const {
    Snapshot snapshot;
    look(*stage.rootNode(), "root", snapshot);
    if (view.technique) {
        for (const auto& pass : view.technique->passes)
            snapshot.emplace_back(Key{"view", "drawn through " + pass.function}, Values{1});
    }
    return snapshot;
}

bool PosesTest::isBusy() const {
    bool is = false;
    stage.rootNode()->enumerateHierarchy([&](const scene::SCNNode& node) {
        is = is || node.hasActions() || !node.animationKeys().empty();
    });
    return is;
}

void PosesTest::nextFrame() {
    sceneTime += poseFrame;
    stage.applyAnimations(sceneTime);
    world.runLoop.runFor(poseFrame);
}

std::vector<PosesTest::Snapshot> PosesTest::film() {
    constexpr double kStill = 0.25; // seconds; longer than the removal of an effect takes
    world.runLoop.drain();
    beginActions();
    std::vector<Snapshot> frames{lookAtStage()};
    for (double still = 0; still < kStill;) {
        nextFrame();
        frames.push_back(lookAtStage());
        still = isBusy() ? 0 : still + poseFrame;
    }
    while (frames.size() > 1 && frames.back() == frames[frames.size() - 2])
        frames.pop_back();
    return frames;
}

std::string PosesTest::watch(const std::string& title, const Snapshot& rest) {
    const auto valuesIn = [](const Snapshot& snapshot, const Key& key) {
        const auto found = std::ranges::find(snapshot, key, &Snapshot::value_type::first);
        const auto usual = kNewNode.find(key.second);
        if (found != snapshot.end() || isPassing(key.first) || usual == kNewNode.end())
            return found == snapshot.end() ? Values() : found->second;
        return usual->second;
    };
    const auto frames = film();
    std::vector<Snapshot> moments;
    std::vector<Key> keys;
    for (const std::size_t moment : kMoments) {
        moments.push_back(frames[moment * (frames.size() - 1) / kMoments.back()]);
        for (const auto& [key, values] : moments.back()) {
            if (std::ranges::find(keys, key) == keys.end())
                keys.push_back(key);
        }
    }
    // Nodes with the same values share a line.
    using Way = std::pair<std::string, std::vector<Values>>;
    std::vector<std::pair<Way, std::string>> lines;
    for (const Key& key : keys) {
        Way way{key.second, {}};
        for (const Snapshot& moment : moments)
            way.second.push_back(valuesIn(moment, key));
        if (std::ranges::count(way.second, valuesIn(rest, key)) == std::ssize(way.second))
            continue;
        const auto same = std::ranges::find(lines, way, &std::pair<Way, std::string>::first);
        if (same == lines.end())
            lines.emplace_back(way, key.first);
        else
            same->second += ' ' + key.first;
    }
    std::string text = '\n' + title + ": " + std::to_string(frames.size() - 1) + " frames\n";
    for (const auto& [way, who] : lines) {
        const auto& [what, track] = way;
        text += fmt::format("  {}, {}:{}", who, what, columnOf(track.front()));
        const bool stays = std::ranges::count(track, track.front()) == std::ssize(track);
        for (std::size_t i = 1; i < track.size() && !stays; ++i)
            text += " |" + (track[i] == track[i - 1] ? " =" : columnOf(track[i]));
        text += '\n';
    }
    return text;
}

void expectReviewedPoses(const std::string& seen) {
    const auto file = std::filesystem::path(ZELVO_TEST_SOURCE_DIR) / "catalogue/data/poses.txt";
    if (std::getenv("ZELVO_UPDATE_GOLDEN") != nullptr)
        std::ofstream(file) << kHeading << seen;
    std::ifstream kept(file);
    std::istringstream lines(kHeading + seen);
    std::string button, line, wanted;
    while (std::getline(kept, wanted), std::getline(lines, line), kept || lines) {
        button = line.starts_with(' ') ? button : line;
        const std::string other = difference(line, wanted);
        EXPECT_EQ(other, "") << button << '\n' << line << "\nnot\n" << wanted;
        if (other == kOtherLine)
            return; // the other lines may be shifted
    }
}

} // namespace zelvo::test
