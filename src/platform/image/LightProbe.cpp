// SPDX-License-Identifier: MIT
#include "platform/image/LightProbe.h"

#include "platform/foundation/Check.h"

#include <glm/common.hpp>
#include <glm/geometric.hpp>

#include <algorithm>
#include <bit>
#include <cmath>
#include <cstring>
#include <fstream>
#include <numbers>
#include <span>

namespace zelvo::image {

using foundation::Cause;
using foundation::fail;
using foundation::Result;

namespace {

static_assert(std::endian::native == std::endian::little, "probes are stored little-endian");

// The file: magic, version, number of levels, side (32 bits each), irradiance, levels.
constexpr std::array<std::uint32_t, 4> kHeader{
    0x42504C5AU, // "ZLPB"
    1,
    static_cast<std::uint32_t>(LightProbe::kLevels),
    static_cast<std::uint32_t>(LightProbe::kSide)};
constexpr std::size_t kLevelTexels =
    static_cast<std::size_t>(LightProbe::kSide) * LightProbe::kSide;
constexpr std::size_t kFileBytes = sizeof(kHeader) + sizeof(LightProbe::irradiance) +
                                   LightProbe::kLevels * kLevelTexels * 3 * sizeof(std::uint16_t);

/// An array or vector of plain numbers.
void write(std::ostream& out, const auto& values) {
    const auto bytes = std::as_bytes(std::span(values));
    out.write(
        reinterpret_cast<const char*>(bytes.data()), static_cast<std::streamsize>(bytes.size()));
}

void read(std::istream& in, auto&& values) {
    const auto bytes = std::as_writable_bytes(std::span(values));
    in.read(reinterpret_cast<char*>(bytes.data()), static_cast<std::streamsize>(bytes.size()));
}

} // namespace

glm::vec3 Radiance::sample(const glm::vec3& direction) const {
    const glm::vec3 d = glm::normalize(direction);
    constexpr float kPi = std::numbers::pi_v<float>;
    const float u = 0.5f + std::atan2(d.x, -d.z) / (2 * kPi);
    const float v = std::acos(std::clamp(d.y, -1.0f, 1.0f)) / kPi;

    const float column = u * static_cast<float>(width) - 0.5f;
    const float row =
        std::clamp(v * static_cast<float>(height) - 0.5f, 0.0f, static_cast<float>(height - 1));
    const float left = std::floor(column);
    const int x0 = (static_cast<int>(left) + width) % width;
    const int x1 = (x0 + 1) % width;
    const int y0 = static_cast<int>(row);
    const int y1 = std::min(y0 + 1, height - 1);
    const auto at = [&](int x, int y) {
        return pixels
            [static_cast<std::size_t>(y) * static_cast<std::size_t>(width) +
             static_cast<std::size_t>(x)];
    };
    const float right = column - left;
    const glm::vec3 upper = glm::mix(at(x0, y0), at(x1, y0), right);
    const glm::vec3 lower = glm::mix(at(x0, y1), at(x1, y1), right);
    return glm::mix(upper, lower, row - static_cast<float>(y0));
}

std::array<float, 9> harmonicsAt(const glm::vec3& n) {
    return {
        1,
        n.y,
        n.z,
        n.x,
        n.x * n.y,
        n.y * n.z,
        3 * n.z * n.z - 1,
        n.z * n.x,
        n.x * n.x - n.y * n.y};
}

glm::vec3 LightProbe::diffuse(const glm::vec3& n) const {
    const std::array<float, 9> basis = harmonicsAt(n);
    glm::vec3 sum{0};
    for (std::size_t i = 0; i < basis.size(); ++i)
        sum += irradiance.at(i) * basis.at(i);
    return sum;
}

Result<LightProbe> LightProbe::load(const std::filesystem::path& file) {
    std::error_code error;
    const auto bytes = std::filesystem::file_size(file, error);
    if (error)
        return fail(Cause::notFound, file.string() + ": there is no such light probe");

    std::ifstream in(file, std::ios::binary);
    std::array<std::uint32_t, 4> header{};
    read(in, header);
    if (!in || header != kHeader || bytes != kFileBytes) {
        return fail(
            Cause::malformed,
            file.string() + ": not a light probe of this version; bake the resources again");
    }
    LightProbe probe;
    for (glm::vec3& coefficient : probe.irradiance)
        read(in, std::span(&coefficient.x, 3));
    for (auto& level : probe.specular) {
        level.resize(kLevelTexels * 3);
        read(in, level);
    }
    if (!in)
        return fail(Cause::unreadable, file.string() + ": the light probe cannot be read");
    return probe;
}

Result<void> LightProbe::save(const std::filesystem::path& file) const {
    const auto isWhole = [](const auto& level) { return level.size() == kLevelTexels * 3; };
    CHECK(std::ranges::all_of(specular, isWhole), "{}: an unfinished light probe", file.string());
    std::ofstream out(file, std::ios::binary);
    write(out, kHeader);
    for (const glm::vec3& coefficient : irradiance)
        write(out, std::span(&coefficient.x, 3));
    for (const auto& level : specular)
        write(out, level);
    out.close();
    if (!out)
        return fail(Cause::unwritable, file.string() + ": the light probe cannot be written");
    return {};
}

} // namespace zelvo::image
