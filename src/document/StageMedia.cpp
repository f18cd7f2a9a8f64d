// SPDX-License-Identifier: MIT
#include "document/StageMedia.h"

#include "platform/image/reading/ImageReader.h"

#include <string>
#include <utility>

namespace zelvo::document {

namespace {

template <class Read> void keep(const Read& read, const Line& line, StageMedia& media) {
    if (!read)
        media.missing.push_back({line.number, read.error().message});
}

} // namespace

StageMedia readMedia(const Style& style) {
    StageMedia media;
    if (style.picture && style.picture->image) {
        const std::filesystem::path file = *style.picture->image;
        if (media::isVideoFile(file)) {
            auto video = media::AVPlayer::open(file);
            keep(video, style.picture->line, media);
            media.video = std::move(video).value_or(nullptr);
        } else {
            auto picture = image::loadImage(file);
            keep(picture, style.picture->line, media);
            media.picture = std::move(picture).value_or(nullptr);
        }
    }
    if (style.object && style.object->object) {
        auto object = scene::readObjectFile(*style.object->object);
        keep(object, style.object->line, media);
        if (object)
            media.object = std::move(*object);
    }
    return media;
}

} // namespace zelvo::document
