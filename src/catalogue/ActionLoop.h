// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <string_view>

namespace zelvo::catalogue {

/// A small movie of what a button does, as one picture: showing it must cost next to nothing while
/// somebody performs. The loops are drawn by the program itself when it is built. The frames stand in
/// rows:
///
///      0  1  2  3  4  5
///      6  7  8 …
///
/// There are as many rows as the action needs, so the height of the picture tells the number of frames.
struct ActionLoop {
    static constexpr int kWidth = 192; ///< pixels of a frame
    static constexpr int kHeight = 108;
    static constexpr int kColumns = 6;
    static constexpr int kMinRows = 3;
    static constexpr int kMaxRows = 5;
    /// Few, because a window without a graphics card is drawn anew for each one.
    static constexpr int kFramesPerSecond = 12;
    static constexpr int kMaxBytes = 80 * 1024;
};

/// The loop's file, below the resources: "loops/rotate-y--180.jpg" for the button "Rotate Y -180".
[[nodiscard]] std::string loopName(std::string_view title);

} // namespace zelvo::catalogue
