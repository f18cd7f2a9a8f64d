// SPDX-License-Identifier: MIT
#include "platform/usd/CrateCompression.h"

#include <lz4.h>

#include <algorithm>
#include <limits>

namespace zelvo::usd {
namespace {

// The format of LZ4 blocks cannot pack better than this.
constexpr std::uint64_t kBestRatio = 255;
constexpr std::uint64_t kMaxInts = std::uint64_t{1} << 31U;

/// Appends what the chunk holds. False if it is damaged or too long.
bool unpackChunk(
    std::span<const std::uint8_t> chunk, std::vector<std::uint8_t>& result, std::size_t& filled) {
    constexpr auto kMax = static_cast<std::size_t>(std::numeric_limits<int>::max());
    if (chunk.size() > kMax)
        return false;
    const auto room = static_cast<int>(std::min(result.size() - filled, kMax));
    // NOLINTNEXTLINE(cppcoreguidelines-pro-type-reinterpret-cast): LZ4 has char pointers
    const auto* source = reinterpret_cast<const char*>(chunk.data());
    auto* target = reinterpret_cast<char*>(result.data() + filled);
    const int size = LZ4_decompress_safe(source, target, static_cast<int>(chunk.size()), room);
    if (size < 0)
        return false;
    filled += static_cast<std::size_t>(size);
    return true;
}

/// The three lengths that an explicit difference can have, after code 0 (the common one).
template <class T> struct Widths;

template <> struct Widths<std::int32_t> {
    using Small = std::int8_t;
    using Middle = std::int16_t;
};

template <> struct Widths<std::int64_t> {
    using Small = std::int16_t;
    using Middle = std::int32_t;
};

template <class T>
std::optional<std::vector<T>> readPacked(ByteReader& reader, std::uint64_t count) {
    using Unsigned = std::make_unsigned_t<T>;
    const auto packed = reader.take(reader.read<std::uint64_t>());
    if (reader.hasFailed() || count > kMaxInts)
        return std::nullopt;
    if (count == 0)
        return std::vector<T>();
    const std::uint64_t codeBytes = (count + 3) / 4;
    const auto bytes = unpackBlock(packed, sizeof(T) + codeBytes + count * sizeof(T));
    if (!bytes)
        return std::nullopt;
    ByteReader explicitOnes(*bytes);
    const T common = explicitOnes.read<T>();
    const auto codes = explicitOnes.take(codeBytes);
    if (explicitOnes.hasFailed())
        return std::nullopt;
    std::vector<T> values(count);
    Unsigned value = 0;
    for (std::uint64_t i = 0; i < count; ++i) {
        T difference = common;
        switch ((codes[i / 4] >> (i % 4 * 2)) & 3U) {
        case 0:
            break;
        case 1:
            difference = static_cast<T>(explicitOnes.read<typename Widths<T>::Small>());
            break;
        case 2:
            difference = explicitOnes.read<typename Widths<T>::Middle>();
            break;
        default:
            difference = explicitOnes.read<T>();
            break;
        }
        value += static_cast<Unsigned>(difference);
        values[i] = static_cast<T>(value);
    }
    if (explicitOnes.hasFailed())
        return std::nullopt;
    return values;
}

} // namespace

std::optional<std::vector<std::uint8_t>>
unpackBlock(std::span<const std::uint8_t> packed, std::uint64_t bound) {
    ByteReader reader(packed);
    const unsigned chunkCount = reader.read<std::uint8_t>();
    if (reader.hasFailed())
        return std::nullopt;
    const std::uint64_t most = std::min(bound, packed.size() * kBestRatio);
    std::vector<std::uint8_t> result(most);
    std::size_t filled = 0;
    if (chunkCount == 0 && !unpackChunk(reader.take(reader.left()), result, filled))
        return std::nullopt;
    for (unsigned i = 0; i < chunkCount; ++i) {
        const auto size = reader.read<std::int32_t>();
        const auto chunk =
            reader.take(size < 0 ? packed.size() + 1 : static_cast<std::uint64_t>(size));
        if (reader.hasFailed() || !unpackChunk(chunk, result, filled))
            return std::nullopt;
    }
    result.resize(filled);
    return result;
}

std::optional<std::vector<std::int32_t>> readPackedInts(ByteReader& reader, std::uint64_t count) {
    return readPacked<std::int32_t>(reader, count);
}

std::optional<std::vector<std::int64_t>> readPackedLongs(ByteReader& reader, std::uint64_t count) {
    return readPacked<std::int64_t>(reader, count);
}

} // namespace zelvo::usd
