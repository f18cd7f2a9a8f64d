// SPDX-License-Identifier: MIT
#include "ui/imports/Unpacked.h"

#include "platform/archive/Archive.h"
#include "ui/imports/FolderFiles.h"

#include <utility>

namespace zelvo::ui {

using foundation::Result;
using foundation::TemporaryFolder;

Result<Unpacked> unpack(const std::filesystem::path& file, const std::filesystem::path& temporary) {
    auto folder = TemporaryFolder::make(temporary);
    if (!folder)
        return tl::unexpected(folder.error());
    Unpacked unpacked{*std::move(folder), {}, {}};
    const auto& place = unpacked.folder.path();
    const auto done = archive::Archive::open(file).and_then(
        [&place](const archive::Archive& opened) { return opened.unpackInto(place); });
    auto files = filesBelow(place, {});
    if (!done)
        unpacked.failure = done.error().in(file.filename().string()).message;
    else if (!files)
        unpacked.failure = files.error().message;
    if (files)
        unpacked.files = *std::move(files);
    return unpacked;
}

} // namespace zelvo::ui
