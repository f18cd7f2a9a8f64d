// SPDX-License-Identifier: MIT
#pragma once

#include "catalogue/CatalogueFixture.h"

#include <map>
#include <string>
#include <utility>
#include <vector>

namespace zelvo::test {

/// What presses do to the stage, as text: the poses of all that moves, from a press to when all
/// stands still.
class PosesTest : public CatalogueTest {
protected:
    PosesTest();

    /// A stage at home, where nothing runs; the random source starts anew.
    void clearStage();

    enum class Performance { first, replay };

    /// A block of text for a press and, of what is held, one for its release. A replay is of what
    /// was performed first, with the random draws that come next.
    [[nodiscard]] std::string
    perform(const catalogue::Button& button, Performance performance = Performance::first);

    /// Exact in binary, so that sums of frames are not rounded, and no wait ends on a frame's edge.
    double poseFrame = 1.0 / 64;

private:
    using Key = std::pair<std::string, std::string>; ///< who, and what of it
    using Values = std::vector<double>;
    /// Of nodes that stay, what is not as in a new one; in the order of the tree.
    using Snapshot = std::vector<std::pair<Key, Values>>;

    void nameWhatStays();
    void look(const scene::SCNNode& node, const std::string& who, Snapshot& into) const;
    [[nodiscard]] Snapshot lookAtStage() const;
    [[nodiscard]] bool isBusy() const;
    void nextFrame();
    /// All frames until everything stands still.
    [[nodiscard]] std::vector<Snapshot> film();
    /// Text of what is not as in `rest` in the frames until everything stands still.
    [[nodiscard]] std::string watch(const std::string& title, const Snapshot& rest);

    std::map<const void*, std::string> names; ///< of the nodes and particle systems that stay
};

/// Compares with the reviewed text in tests/catalogue/data/poses.txt. ZELVO_UPDATE_GOLDEN=1 in the
/// environment writes it anew; read what has changed before you commit it.
void expectReviewedPoses(const std::string& seen);

} // namespace zelvo::test
