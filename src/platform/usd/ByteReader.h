// SPDX-License-Identifier: MIT
#pragma once

#include <bit>
#include <cstdint>
#include <cstring>
#include <span>
#include <type_traits>
#include <vector>

namespace zelvo::usd {

/// Reads little-endian data. Past the end it gives zeros and remembers that it failed, so that a
/// record is read in one go and checked once.
class ByteReader {
public:
    static_assert(std::endian::native == std::endian::little);

    explicit ByteReader(std::span<const std::uint8_t> data, std::uint64_t position = 0)
        : bytes(data)
        , at(position)
        , failed(position > data.size()) {}

    template <class T> [[nodiscard]] T read() {
        static_assert(std::is_trivially_copyable_v<T>);
        T value{};
        const auto part = take(sizeof(T));
        if (!part.empty())
            std::memcpy(&value, part.data(), sizeof(T));
        return value;
    }

    /// Empty if there are not that many left.
    [[nodiscard]] std::span<const std::uint8_t> take(std::uint64_t count) {
        if (failed || count > left()) {
            failed = true;
            return {};
        }
        const auto part =
            bytes.subspan(static_cast<std::size_t>(at), static_cast<std::size_t>(count));
        at += count;
        return part;
    }

    /// Empty if there are not that many left.
    template <class T> [[nodiscard]] std::vector<T> readMany(std::uint64_t count) {
        if (count > left() / sizeof(T))
            failed = true;
        const auto part = failed ? std::span<const std::uint8_t>() : take(count * sizeof(T));
        std::vector<T> values(part.size() / sizeof(T));
        if (!part.empty())
            std::memcpy(values.data(), part.data(), part.size());
        return values;
    }

    void seek(std::uint64_t position) {
        at = position;
        failed = failed || position > bytes.size();
    }

    [[nodiscard]] std::uint64_t position() const { return at; }

    [[nodiscard]] std::uint64_t left() const { return failed ? 0 : bytes.size() - at; }

    [[nodiscard]] bool hasFailed() const { return failed; }

private:
    std::span<const std::uint8_t> bytes;
    std::uint64_t at;
    bool failed;
};

} // namespace zelvo::usd
