// SPDX-License-Identifier: MIT
#pragma once

#include <functional>
#include <string>

namespace zelvo::app {

/// "  120/358 frames  6.9 fps  0:35 left", with a bar of the given width before it where that is
/// above 0.
[[nodiscard]] std::string progressText(int done, int total, double seconds, int barWidth);

/// Shows on stderr how far an export is: a bar that is drawn anew at most ten times a second on a
/// terminal, else a line at most every five seconds.
class Progress {
public:
    /// Says the time in seconds.
    using Clock = std::function<double()>;
    /// Takes what is to be written.
    using Sink = std::function<void(const std::string&)>;
    enum class Kind { bar, lines };

    Progress(Kind shownAs, Clock time, Sink output);

    /// On stderr, by what it is.
    [[nodiscard]] static Progress onStandardError();

    void update(int done, int total);
    /// Leaves the cursor on a fresh line.
    void finish();

private:
    Kind kind;
    Clock clock;
    Sink sink;
    double start;
    double lastShown;
    bool hasShown = false;
};

} // namespace zelvo::app
