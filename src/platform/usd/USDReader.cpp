// SPDX-License-Identifier: MIT
#include "platform/usd/USDReader.h"

#include "platform/usd/SceneReader.h"

#include <utility>

namespace zelvo::usd {

foundation::Result<object::ObjectScene>
readUSD(std::span<const std::uint8_t> bytes, const object::Watch& watch, const Limits& limits) {
    auto assets = Assets::open(bytes, limits);
    if (!assets)
        return tl::unexpected(assets.error());
    const auto stage = Stage::open(*std::move(assets), limits);
    if (!stage)
        return tl::unexpected(stage.error());
    return SceneReader(**stage, limits, watch).read();
}

} // namespace zelvo::usd
