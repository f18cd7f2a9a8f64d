// SPDX-License-Identifier: MIT
#include "app/Progress.h"

#include "app/Stopwatch.h"

#include <fmt/format.h>
#include <unistd.h>

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <string_view>
#include <utility>

namespace zelvo::app {

namespace {

constexpr double kBarInterval = 0.1;  ///< seconds
constexpr double kLineInterval = 5.0; ///< seconds
constexpr int kBarWidth = 28;
constexpr std::string_view kClearLine = "\x1B[K";

[[nodiscard]] std::string minutes(double seconds) {
    const auto whole = static_cast<long>(std::ceil(seconds));
    return fmt::format("{}:{:02}", whole / 60, whole % 60);
}

[[nodiscard]] std::string bar(double share, int width) {
    const auto full = static_cast<int>(share * width);
    std::string result;
    for (int i = 0; i < width; ++i)
        result += i < full ? "█" : "░";
    return result + "  ";
}

} // namespace

std::string progressText(int done, int total, double seconds, int barWidth) {
    done = std::min(done, total);
    const double share = total > 0 ? static_cast<double>(done) / total : 0;
    auto text = bar(share, barWidth) + fmt::format("{}/{} frames", done, total);
    if (done == 0 || seconds <= 0)
        return text;
    const double rate = done / seconds;
    return text + fmt::format("  {:.1f} fps  {} left", rate, minutes((total - done) / rate));
}

Progress::Progress(Kind shownAs, Clock time, Sink output)
    : kind(shownAs)
    , clock(std::move(time))
    , sink(std::move(output))
    , start(clock())
    , lastShown(start) {}

Progress Progress::onStandardError() {
    const auto write = [](const std::string& text) {
        (void)std::fwrite(text.data(), 1, text.size(), stderr);
        (void)std::fflush(stderr);
    };
    const auto kind = isatty(STDERR_FILENO) != 0 ? Kind::bar : Kind::lines;
    return {kind, &stopwatchSeconds, write};
}

void Progress::update(int done, int total) {
    const double now = clock();
    const double interval = kind == Kind::bar ? kBarInterval : kLineInterval;
    if (now - lastShown < interval)
        return;
    lastShown = now;
    hasShown = true;
    const double seconds = now - start;
    if (kind == Kind::bar) {
        sink(fmt::format("\r{}{}", progressText(done, total, seconds, kBarWidth), kClearLine));
    } else {
        sink(progressText(done, total, seconds, 0) + "\n");
    }
}

void Progress::finish() {
    if (kind == Kind::bar && hasShown)
        sink(fmt::format("\r{}", kClearLine));
    hasShown = false;
}

} // namespace zelvo::app
