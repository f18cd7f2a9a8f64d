// SPDX-License-Identifier: MIT
#pragma once

#include "actions/HomePose.h"
#include "content/TextNode.h"
#include "node/Node.h"
#include "platform/scene/SCNAction.h"

#include <glm/trigonometric.hpp>
#include <glm/vec3.hpp>

#include <vector>

// What the animations of the catalogue are put together from. Durations are seconds, lengths scene
// units.

namespace zelvo::catalogue {

/// A place at rest: the node itself, the top of the rig, is what moves, and its layout lives
/// further down.
inline constexpr glm::vec3 kHome{0, 0, 0};

/// Euler angles as the tables give them; turned to radians here and nowhere else.
struct Degrees {
    float x = 0;
    float y = 0;
    float z = 0;

    [[nodiscard]] glm::vec3 radians() const {
        return {glm::radians(x), glm::radians(y), glm::radians(z)};
    }
};

/// Every rotation that a later one is to supersede, while moves go on, runs under this key.
inline constexpr const char* kRotateKey = "rotate";

inline constexpr Degrees kUpright{};

/// How an action runs: over `duration` seconds, along a curve (null is linear).
struct Pace {
    double duration = 0;
    scene::TimingFunction timing{};
};

[[nodiscard]] scene::SCNActionPtr moveTo(const glm::vec3& place, const Pace& pace = {});
[[nodiscard]] scene::SCNActionPtr rotateTo(const Degrees& angles, const Pace& pace = {});

/// Jumps to the start, then travels.
void moveFromTo(scene::SCNNode& node, const glm::vec3& from, const glm::vec3& to, const Pace& pace);
/// The same for a rotation; under the rotate key.
void rotateFromTo(scene::SCNNode& node, const Degrees& from, const Degrees& to, const Pace& pace);
/// The same, keeping company with other rotations.
void rotateFromToKeyless(
    scene::SCNNode& node, const Degrees& from, const Degrees& to, const Pace& pace);

/// A uniform integer, both ends included.
[[nodiscard]] int randomBetween(int low, int high);
/// -1 or 1.
[[nodiscard]] int randomSign();
/// randomBetween with a random sign.
[[nodiscard]] float randomDegrees(int low, int high);
/// One such angle for each axis.
[[nodiscard]] Degrees randomTurn(int low, int high);
/// A uniform whole number in 0 to span - 1, less half the span.
[[nodiscard]] float randomOffset(int span);

using actions::placeOf;

using Letters = std::vector<content::CharNodePtr>;

/// The letters of the texts among the nodes, text by text. Made anew by every change of style:
/// never to be captured.
[[nodiscard]] Letters lettersOf(const std::vector<core::NodePtr>& nodes);
[[nodiscard]] std::vector<core::NodePtr> nonTextNodes(const std::vector<core::NodePtr>& nodes);
[[nodiscard]] bool isText(const core::Node& node);
[[nodiscard]] Letters shuffled(Letters letters);

} // namespace zelvo::catalogue
