// SPDX-License-Identifier: MIT
#include "platform/music/BoundedStream.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>

namespace zelvo::music {

BoundedStream::BoundedStream(const std::filesystem::path& path, LargeBlock policy)
    : fileName(path.string())
    , largeBlock(policy)
    // Does not wait for somebody to write into a pipe.
    , file(open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK)) {
    struct stat status {};

    if (file.isOpen() && fstat(file.get(), &status) == 0 && S_ISREG(status.st_mode))
        size = status.st_size;
}

TagLib::ByteVector BoundedStream::readBlock(unsigned long length) {
    if (place < 0 || place >= size || readsLeft-- <= 0)
        return {};
    length = std::min(length, static_cast<unsigned long>(size - place));
    if (length > kMaxBlock && largeBlock == LargeBlock::isZeroed && length <= kMaxBytes) {
        place += static_cast<long>(length);
        return {static_cast<unsigned>(length), '\0'};
    }
    length = std::min({length, kMaxBlock, bytesLeft});
    TagLib::ByteVector block(static_cast<unsigned>(length), '\0');
    const ssize_t count = length == 0 ? 0 : pread(file.get(), block.data(), length, place);
    block.resize(static_cast<unsigned>(std::max<ssize_t>(count, 0)));
    bytesLeft -= block.size();
    place += static_cast<long>(block.size());
    return block;
}

void BoundedStream::seek(long offset, Position from) {
    const long origin = from == Beginning ? 0 : from == Current ? place : size;
    if (__builtin_add_overflow(origin, offset, &place))
        place = size;
    place = std::max(place, 0L);
}

} // namespace zelvo::music
