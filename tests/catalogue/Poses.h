// SPDX-License-Identifier: MIT
#pragma once

#include "catalogue/CatalogueFixture.h"

#include <map>
#include <string>
#include <utility>
#include <vector>

namespace zelvo::test {

/// The effect of presses on the stage as text: the poses of all nodes that move, from the press
/// until nothing moves any more.
class PosesTest : public CatalogueTest {
protected:
    PosesTest();

    /// Resets the stage, stops all actions and seeds the random source.
    void clearStage();

    enum class Performance { first, replay };

    /// Text for a press and, if the button is held, for its release. A replay repeats the recorded
    /// press with the next random draws.
    [[nodiscard]] std::string
    perform(const catalogue::Button& button, Performance performance = Performance::first);

    /// Exact in binary, so that sums of frames have no rounding errors and no wait ends at a
    /// frame's edge.
    double poseFrame = 1.0 / 64;

private:
    using Key = std::pair<std::string, std::string>; ///< node, property
    using Values = std::vector<double>;
    /// Only values that differ from those of a new node; permanent nodes in tree order.
    using Snapshot = std::vector<std::pair<Key, Values>>;

    void nameWhatStays();
    void look(const scene::SCNNode& node, const std::string& who, Snapshot& into) const;
    [[nodiscard]] Snapshot lookAtStage() const;
    [[nodiscard]] bool isBusy() const;
    void nextFrame();
    /// All frames until nothing moves any more.
    [[nodiscard]] std::vector<Snapshot> film();
    /// Text of all values that differ from `rest`, until nothing moves any more.
    [[nodiscard]] std::string watch(const std::string& title, const Snapshot& rest);

    std::map<const void*, std::string> names; ///< of permanent nodes and particle systems
};

/// Compares with the reviewed text in tests/catalogue/data/poses.txt. ZELVO_UPDATE_GOLDEN=1 in the
/// environment replaces it; read what has changed before you commit it.
void expectReviewedPoses(const std::string& seen);

} // namespace zelvo::test
