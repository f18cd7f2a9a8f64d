// SPDX-License-Identifier: MIT
#pragma once

#include "media/MediaFixture.h"

#include <taglib/aifffile.h>
#include <taglib/attachedpictureframe.h>
#include <taglib/fileref.h>
#include <taglib/flacfile.h>
#include <taglib/id3v2tag.h>
#include <taglib/tpropertymap.h>

#include <filesystem>
#include <map>
#include <string>

namespace zelvo::music {

using Tags = std::map<std::string, std::string>;

/// Writes tags into a sound file, by the names that TagLib has for them.
inline void writeTags(const std::filesystem::path& file, const Tags& tags) {
    const TagLib::FileRef opened(file.c_str(), false);
    ASSERT_FALSE(opened.isNull()) << file;
    TagLib::PropertyMap properties;
    for (const auto& [key, value] : tags)
        properties[key] = TagLib::String(value, TagLib::String::UTF8);
    opened.file()->setProperties(properties);
    ASSERT_TRUE(opened.file()->save()) << file;
}

/// A short sound with tags.
inline void writeSong(const std::filesystem::path& file, const Tags& tags) {
    std::filesystem::create_directories(file.parent_path());
    media::writeWav(file, 8000, 0.05, media::sine(440, 0.5));
    writeTags(file, tags);
}

} // namespace zelvo::music
