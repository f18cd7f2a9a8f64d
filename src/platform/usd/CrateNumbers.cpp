// SPDX-License-Identifier: MIT
#include "platform/usd/CrateNumbers.h"

#include "platform/usd/CrateCompression.h"

#include <glm/gtc/packing.hpp>

#include <algorithm>
#include <array>
#include <bit>
#include <cmath>
#include <limits>

namespace zelvo::usd {
namespace {

using enum NumberForm;

struct Row {
    unsigned type;
    NumberType numbers;
};

// clang-format off
constexpr auto kTypes = std::to_array<Row>({
    { 1, {byte,    1}}, { 2, {byte,    1}},
    { 3, {int32,   1}}, { 4, {uint32,  1}}, { 5, {int64,   1}}, { 6, {uint64,  1}},
    { 7, {half,    1}}, { 8, {float32, 1}}, { 9, {float64, 1}},
    {13, {float64, 4, true}}, {14, {float64, 9, true}}, {15, {float64, 16, true}},
    {16, {float64, 4}}, {17, {float32, 4}}, {18, {half,    4}},
    {19, {float64, 2}}, {20, {float32, 2}}, {21, {half,    2}}, {22, {int32,   2}},
    {23, {float64, 3}}, {24, {float32, 3}}, {25, {half,    3}}, {26, {int32,   3}},
    {27, {float64, 4}}, {28, {float32, 4}}, {29, {half,    4}}, {30, {int32,   4}},
    {42, {int32,   1}}, {43, {int32,   1}}, {44, {int32,   1}},
    {56, {float64, 1}},
});

// clang-format on

double half1(std::uint16_t bits) {
    return glm::unpackHalf1x16(bits);
}

bool isWhole(NumberForm form) {
    return form < half;
}

double readOne(NumberForm form, ByteReader& reader) {
    switch (form) {
    case byte:
        return reader.read<std::uint8_t>();
    case int32:
        return reader.read<std::int32_t>();
    case uint32:
        return reader.read<std::uint32_t>();
    case int64:
        return static_cast<double>(reader.read<std::int64_t>());
    case uint64:
        return static_cast<double>(reader.read<std::uint64_t>());
    case half:
        return half1(reader.read<std::uint16_t>());
    case float32:
        return reader.read<float>();
    case float64:
        return reader.read<double>();
    }
    return 0;
}

std::size_t bytesOf(NumberForm form) {
    constexpr std::array<std::size_t, 8> kBytes{1, 4, 4, 8, 8, 2, 4, 8};
    return kBytes[static_cast<std::size_t>(form)];
}

template <class To, class From> To nearest(From value) {
    return static_cast<To>(std::clamp<From>(
        value,
        static_cast<From>(std::numeric_limits<To>::min()),
        static_cast<From>(std::numeric_limits<To>::max())));
}

IntArray narrowed(const std::vector<std::int64_t>& values) {
    IntArray result(values.size());
    std::ranges::transform(values, result.begin(), nearest<std::int32_t, std::int64_t>);
    return result;
}

std::vector<float> asFloats(const std::vector<std::int32_t>& values) {
    return {values.begin(), values.end()};
}

/// The plain elements of an array of whole numbers.
std::optional<IntArray> plainInts(NumberForm form, ByteReader& reader, std::uint64_t count) {
    switch (form) {
    case byte: {
        const auto part = reader.readMany<std::uint8_t>(count);
        return IntArray(part.begin(), part.end());
    }
    case int32:
    case uint32:
        return reader.readMany<std::int32_t>(count);
    default:
        return narrowed(reader.readMany<std::int64_t>(count));
    }
}

std::optional<std::vector<float>>
plainFloats(NumberForm form, ByteReader& reader, std::uint64_t count) {
    if (form == float32)
        return reader.readMany<float>(count);
    std::vector<float> values;
    if (form == half) {
        const auto part = reader.readMany<std::uint16_t>(count);
        values.resize(part.size());
        std::ranges::transform(part, values.begin(), glm::unpackHalf1x16);
    } else if (form == float64) {
        const auto part = reader.readMany<double>(count);
        values.resize(part.size());
        std::ranges::transform(
            part, values.begin(), [](double value) { return static_cast<float>(value); });
    } else {
        const auto part = plainInts(form, reader, count);
        values.assign(part->begin(), part->end());
    }
    return values;
}

std::optional<IntArray> packedInts(NumberForm form, ByteReader& reader, std::uint64_t count) {
    if (form == int32 || form == uint32)
        return readPackedInts(reader, count);
    const auto values = readPackedLongs(reader, count);
    return values ? std::optional(narrowed(*values)) : std::nullopt;
}

std::optional<std::vector<float>>
packedFloats(NumberForm form, ByteReader& reader, std::uint64_t count) {
    const char way = reader.read<char>();
    if (way == 'i') {
        const auto values = readPackedInts(reader, count);
        return values ? std::optional(asFloats(*values)) : std::nullopt;
    }
    if (way != 't')
        return std::nullopt;
    const auto table = plainFloats(form, reader, reader.read<std::uint32_t>());
    const auto indices = readPackedInts(reader, count);
    if (!table || !indices || reader.hasFailed())
        return std::nullopt;
    std::vector<float> values;
    values.reserve(count);
    for (const std::int32_t index : *indices) {
        if (index < 0 || static_cast<std::size_t>(index) >= table->size())
            return std::nullopt;
        values.push_back((*table)[static_cast<std::size_t>(index)]);
    }
    return values;
}

} // namespace

std::optional<NumberType> numberTypeOf(unsigned type) {
    const auto* row = std::ranges::find(kTypes, type, &Row::type);
    return row == kTypes.end() ? std::nullopt : std::optional(row->numbers);
}

Numbers inlinedNumbers(NumberType type, std::uint32_t bits) {
    const auto small = [bits](std::size_t i) {
        return static_cast<double>(static_cast<std::int8_t>(bits >> (8 * i) & 0xFFU));
    };
    Numbers values(type.width);
    if (type.isMatrix) {
        const auto side = static_cast<std::size_t>(std::lround(std::sqrt(type.width)));
        for (std::size_t i = 0; i < side; ++i)
            values[i * side + i] = small(i);
        return values;
    }
    if (type.width > 1) {
        for (std::size_t i = 0; i < type.width; ++i)
            values[i] = small(i);
        return values;
    }
    switch (type.form) {
    case byte:
        return {static_cast<double>(bits & 0xFFU)};
    case uint32:
    case uint64:
        return {static_cast<double>(bits)};
    case half:
        return {half1(static_cast<std::uint16_t>(bits))};
    case float32:
    case float64:
        return {std::bit_cast<float>(bits)};
    default:
        return {static_cast<double>(static_cast<std::int32_t>(bits))};
    }
}

Numbers readNumbers(NumberType type, ByteReader& reader) {
    Numbers values(type.width);
    for (double& value : values)
        value = readOne(type.form, reader);
    return reader.hasFailed() ? Numbers() : values;
}

std::uint64_t readArrayLength(ByteReader& reader, CrateVersion version) {
    constexpr CrateVersion kNoRank{0, 5, 0};
    constexpr CrateVersion kLongLengths{0, 7, 0};
    if (version < kNoRank)
        static_cast<void>(reader.read<std::uint32_t>());
    return version < kLongLengths ? reader.read<std::uint32_t>() : reader.read<std::uint64_t>();
}

Value readNumberArray(NumberType type, ByteReader& reader, ArrayForm form, Budget& budget) {
    // Shorter ones are plain, whatever the bit says.
    constexpr std::uint64_t kShortestPacked = 16;
    constexpr std::uint64_t kMost = 1U << 30U;
    const std::uint64_t length = readArrayLength(reader, form.version);
    const bool isPacked = form.isPacked && type.width == 1 && length >= kShortestPacked;
    if (reader.hasFailed() || length > kMost)
        return {};
    const std::uint64_t count = length * type.width;
    if (!isPacked && count > reader.left() / bytesOf(type.form))
        return {};
    if (!budget.take(count * sizeof(float)))
        return {};
    if (isWhole(type.form) && type.width == 1) {
        auto values =
            isPacked ? packedInts(type.form, reader, count) : plainInts(type.form, reader, count);
        return values && !reader.hasFailed() ? Value(*std::move(values)) : Value();
    }
    auto values =
        isPacked ? packedFloats(type.form, reader, count) : plainFloats(type.form, reader, count);
    if (!values || reader.hasFailed())
        return {};
    return FloatArray{type.width, *std::move(values)};
}

} // namespace zelvo::usd
