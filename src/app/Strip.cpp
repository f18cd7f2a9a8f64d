// SPDX-License-Identifier: MIT
#include "app/Strip.h"

#include "app/ContactSheet.h"
#include "shared/FrameClock.h"

#include <fmt/format.h>

#include <algorithm>
#include <cstdint>
#include <memory>
#include <set>

namespace zelvo::app {

namespace {

constexpr int kMaxColumns = 4;
constexpr std::int64_t kMaxPixels = 100'000'000;

/// A strip that still waits for some of its tiles.
struct Gathering {
    SheetLayout layout;
    std::vector<int> moments; ///< frame of each tile
    std::vector<Tile> tiles;
    std::size_t missing = 0;

    void put(int frame, const render::FrameView& drawn) {
        for (std::size_t i = 0; i < moments.size(); ++i) {
            auto& picture = tiles[i].picture;
            if (moments[i] != frame || !picture.pixels.empty())
                continue;
            picture.width = drawn.size.width;
            picture.height = drawn.size.height;
            picture.pixels.assign(drawn.bytes.begin(), drawn.bytes.end());
            --missing;
        }
    }
};

} // namespace

std::vector<double> momentsOf(const StripCommand& command) {
    std::vector<double> moments;
    moments.reserve(static_cast<std::size_t>(command.count));
    const int last = std::max(1, command.count - 1);
    for (int i = 0; i < command.count; ++i)
        moments.push_back(command.from + (command.to - command.from) * i / last);
    return moments;
}

foundation::Result<movie::FrameTap> stripTap(const StripCommand& command) {
    const auto strip = std::make_shared<Gathering>();
    for (const double moment : momentsOf(command)) {
        strip->moments.push_back(shared::FrameClock::frameSeenAt(moment));
        strip->tiles.push_back({fmt::format("{:.2f} s", moment), {}});
    }
    strip->missing = strip->tiles.size();
    strip->layout =
        layoutFor(strip->tiles.size(), kMaxColumns, command.size.width, command.size.height);
    if (std::int64_t{strip->layout.width()} * strip->layout.height() > kMaxPixels) {
        return foundation::fail(
            foundation::Cause::tooLarge,
            fmt::format(
                "a strip of {} x {} pixels is too large; ask for a smaller --size or --count",
                strip->layout.width(),
                strip->layout.height()));
    }
    return movie::FrameTap{
        .wants = [strip](int frame) { return std::ranges::count(strip->moments, frame) > 0; },
        .take = [strip, file = command.out](
                    int frame, const render::FrameView& drawn) -> foundation::Result<void> {
            if (strip->missing == 0)
                return {};
            strip->put(frame, drawn);
            if (strip->missing > 0)
                return {};
            const auto sheet = contactSheet(strip->tiles, strip->layout);
            if (!sheet)
                return tl::unexpected(sheet.error());
            return image::savePNG(*sheet, file);
        },
        .count = static_cast<int>(std::set(strip->moments.begin(), strip->moments.end()).size())};
}

} // namespace zelvo::app
