// SPDX-License-Identifier: MIT

// Changes pictures as libFuzzer does, then mends the check sums of PNG chunks. Otherwise a PNG file with a changed header
// or palette is refused for its sum, and nothing behind it is tried.

#include <boost/crc.hpp>

#include <algorithm>
#include <array>
#include <cstdint>
#include <span>

extern "C" std::size_t
LLVMFuzzerMutate(std::uint8_t* data, std::size_t size, std::size_t maxSize); // libFuzzer's own

namespace {

constexpr std::array<std::uint8_t, 8> kSignature{0x89, 'P', 'N', 'G', '\r', '\n', 0x1A, '\n'};
constexpr std::size_t kHead = 8; ///< bytes of a chunk's length and name
constexpr std::size_t kSum = 4;  ///< bytes of the check sum behind its data

std::size_t numberAt(std::span<const std::uint8_t> bytes) {
    std::size_t number = 0;
    for (const std::uint8_t byte : bytes.first(4))
        number = number << 8U | byte;
    return number;
}

void mendChunks(std::span<std::uint8_t> chunks) {
    while (chunks.size() >= kHead + kSum) {
        const std::size_t length = numberAt(chunks);
        if (length > chunks.size() - kHead - kSum)
            return;
        // The sum covers the name and the data.
        boost::crc_32_type sum;
        sum.process_bytes(&chunks[4], 4 + length);
        const std::uint32_t value = sum.checksum();
        for (unsigned i = 0; i < kSum; ++i)
            chunks[kHead + length + i] = static_cast<std::uint8_t>(value >> (24U - 8U * i));
        chunks = chunks.subspan(kHead + length + kSum);
    }
}

} // namespace

// NOLINTNEXTLINE(readability-identifier-naming): libFuzzer calls it by this name
extern "C" std::size_t
LLVMFuzzerCustomMutator(std::uint8_t* data, std::size_t size, std::size_t maxSize, unsigned seed) {
    const std::span<std::uint8_t> changed(data, LLVMFuzzerMutate(data, size, maxSize));
    const bool isPNG = changed.size() > kSignature.size() &&
                       std::equal(kSignature.begin(), kSignature.end(), changed.begin());
    // Some inputs keep their wrong sums, because that must be refused, too.
    constexpr unsigned kKeptWrong = 16;
    if (isPNG && seed % kKeptWrong != 0)
        mendChunks(changed.subspan(kSignature.size()));
    return changed.size();
}
