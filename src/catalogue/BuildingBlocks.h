// SPDX-License-Identifier: MIT
#pragma once

#include "actions/HomePose.h"
#include "content/TextNode.h"
#include "node/Node.h"
#include "platform/scene/SCNAction.h"

#include <glm/trigonometric.hpp>
#include <glm/vec3.hpp>

#include <vector>

// The parts that the catalogue's animations are made of. Durations are in seconds, lengths in scene
// units.

namespace zelvo::catalogue {

/// The rest position of a node. The node itself, the top of its rig, is moved; the user's layout is
/// further down.
inline constexpr glm::vec3 kHome{0, 0, 0};

/// Euler angles in degrees, as in the tables. Converted to radians only here.
struct Degrees {
    float x = 0;
    float y = 0;
    float z = 0;

    [[nodiscard]] glm::vec3 radians() const {
        return {glm::radians(x), glm::radians(y), glm::radians(z)};
    }
};

/// Rotations use this key, so that a new rotation replaces a running one but not a move.
inline constexpr const char* kRotateKey = "rotate";

inline constexpr Degrees kUpright{};

/// How an action runs: `duration` in seconds and the timing curve (null is linear).
struct Pace {
    double duration = 0;
    scene::TimingFunction timing{};
};

[[nodiscard]] scene::SCNActionPtr moveTo(const glm::vec3& place, const Pace& pace = {});
[[nodiscard]] scene::SCNActionPtr rotateTo(const Degrees& angles, const Pace& pace = {});

/// Jumps to the start, then moves to the end.
void moveFromTo(scene::SCNNode& node, const glm::vec3& from, const glm::vec3& to, const Pace& pace);
/// The same for a rotation, under kRotateKey.
void rotateFromTo(scene::SCNNode& node, const Degrees& from, const Degrees& to, const Pace& pace);
/// The same without a key, so that other rotations continue.
void rotateFromToKeyless(
    scene::SCNNode& node, const Degrees& from, const Degrees& to, const Pace& pace);

/// A uniform random integer, both ends included.
[[nodiscard]] int randomBetween(int low, int high);
/// -1 or 1.
[[nodiscard]] int randomSign();
/// randomBetween with a random sign.
[[nodiscard]] float randomDegrees(int low, int high);
/// A random angle for each axis.
[[nodiscard]] Degrees randomTurn(int low, int high);
/// A uniform random whole number from 0 to span - 1, minus half the span.
[[nodiscard]] float randomOffset(int span);

using actions::placeOf;

using Letters = std::vector<content::CharNodePtr>;

/// The letters of all texts among the nodes. They are rebuilt on every change of style, so never
/// capture them.
[[nodiscard]] Letters lettersOf(const std::vector<node::NodePtr>& nodes);
[[nodiscard]] std::vector<node::NodePtr> nonTextNodes(const std::vector<node::NodePtr>& nodes);
[[nodiscard]] bool isText(const node::Node& node);
[[nodiscard]] Letters shuffled(Letters letters);

} // namespace zelvo::catalogue
