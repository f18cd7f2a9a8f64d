// SPDX-License-Identifier: MIT
#include "app/Strip.h"

#include "app/ContactSheet.h"
#include "app/Export.h"
#include "app/PictureFiles.h"

#include <fmt/format.h>

#include <algorithm>
#include <cstdint>
#include <memory>
#include <set>

namespace zelvo::app {

namespace {

constexpr int kMostColumns = 4;
constexpr std::int64_t kMostPixels = 100'000'000;

/// A strip whose tiles come one after the other.
struct Gathering {
    SheetLayout layout;
    std::vector<int> ticks; ///< of each tile
    std::vector<Tile> tiles;
    std::size_t missing = 0;

    void put(int tick, const render::FrameView& frame) {
        for (std::size_t i = 0; i < ticks.size(); ++i) {
            auto& picture = tiles[i].picture;
            if (ticks[i] != tick || !picture.pixels.empty())
                continue;
            picture.width = frame.size.width;
            picture.height = frame.size.height;
            picture.pixels.assign(frame.bytes.begin(), frame.bytes.end());
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
        strip->ticks.push_back(tickAt(moment));
        strip->tiles.push_back({fmt::format("{:.2f} s", moment), {}});
    }
    strip->missing = strip->tiles.size();
    strip->layout =
        layoutFor(strip->tiles.size(), kMostColumns, command.size.width, command.size.height);
    if (std::int64_t{strip->layout.width()} * strip->layout.height() > kMostPixels) {
        return foundation::fail(
            foundation::Cause::tooLarge,
            fmt::format(
                "a strip of {} x {} pixels is too large; ask for a smaller --size or --count",
                strip->layout.width(),
                strip->layout.height()));
    }
    return movie::FrameTap{
        .wants =
            [strip](double time) { return std::ranges::count(strip->ticks, tickOf(time)) > 0; },
        .take = [strip, file = command.out](
                    double time, const render::FrameView& frame) -> foundation::Result<void> {
            if (strip->missing == 0)
                return {};
            strip->put(tickOf(time), frame);
            if (strip->missing > 0)
                return {};
            const auto sheet = contactSheet(strip->tiles, strip->layout);
            if (!sheet)
                return tl::unexpected(sheet.error());
            return image::savePNG(*sheet, file);
        },
        .count = static_cast<int>(std::set(strip->ticks.begin(), strip->ticks.end()).size())};
}

} // namespace zelvo::app
