// SPDX-License-Identifier: MIT
#pragma once

#include "platform/foundation/Descriptor.h"

#include <taglib/tiostream.h>

#include <filesystem>
#include <string>

namespace zelvo::music {

/// A file for TagLib to read, with limits: TagLib believes the lengths that a file tells, and looks
/// through a whole file for the beginning of the sound.
class BoundedStream final : public TagLib::IOStream {
public:
    static constexpr unsigned long kMaxBlock = 16UL << 20U;
    static constexpr unsigned long kMaxBytes = 256UL << 20U; ///< of all reads; then the file ends
    static constexpr int kMaxReads = 2'000'000;

    /// What a block above kMaxBlock is. It is hardly ever anything but a picture.
    enum class LargeBlock {
        isCutOff, ///< as if the file ended
        isZeroed, ///< it has its length, for formats whose later parts must be found
    };

    BoundedStream(const std::filesystem::path& path, LargeBlock policy);

    [[nodiscard]] TagLib::FileName name() const override { return fileName.c_str(); }

    [[nodiscard]] TagLib::ByteVector readBlock(unsigned long length) override;
    void seek(long offset, Position from) override;

    [[nodiscard]] long tell() const override { return place; }

    [[nodiscard]] long length() override { return size; }

    /// False for anything but a regular file.
    [[nodiscard]] bool isOpen() const override { return size >= 0; }

    [[nodiscard]] bool readOnly() const override { return true; }

    void writeBlock(const TagLib::ByteVector& /*data*/) override {}

    void insert(
        const TagLib::ByteVector& /*data*/,
        unsigned long /*start*/,
        unsigned long /*replace*/) override {}

    void removeBlock(unsigned long /*start*/, unsigned long /*length*/) override {}

    void truncate(long /*length*/) override {}

private:
    std::string fileName;
    LargeBlock largeBlock;
    foundation::Descriptor file;
    long size = -1;
    long place = 0;
    unsigned long bytesLeft = kMaxBytes;
    int readsLeft = kMaxReads;
};

} // namespace zelvo::music
