// SPDX-License-Identifier: MIT
#pragma once

#include <functional>
#include <string>

namespace zelvo::app {

/// For example "  120/358 frames  6.9 fps  0:35 left", after a bar if `barWidth` is above 0.
[[nodiscard]] std::string progressText(int done, int total, double seconds, int barWidth);

/// Shows the progress of an export. On a terminal it is a bar, redrawn at most ten times a second;
/// elsewhere it is a new line at most every five seconds.
class Progress {
public:
    /// Returns the time in seconds.
    using Clock = std::function<double()>;
    /// Writes the text.
    using Sink = std::function<void(const std::string&)>;
    enum class Kind { bar, lines };

    Progress(Kind shownAs, Clock time, Sink output);

    /// Writes to stderr; a bar if that is a terminal.
    [[nodiscard]] static Progress onStandardError();

    void update(int done, int total);
    /// Removes the bar, so that other output can follow.
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
