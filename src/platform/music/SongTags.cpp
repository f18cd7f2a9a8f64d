// SPDX-License-Identifier: MIT
#include "platform/music/SongTags.h"

#include "platform/music/BoundedStream.h"
#include "platform/music/CleanText.h"

#include <taglib/aifffile.h>
#include <taglib/attachedpictureframe.h>
#include <taglib/flacfile.h>
#include <taglib/id3v2framefactory.h>
#include <taglib/id3v2tag.h>
#include <taglib/mp4file.h>
#include <taglib/mpegfile.h>
#include <taglib/oggflacfile.h>
#include <taglib/opusfile.h>
#include <taglib/tpropertymap.h>
#include <taglib/vorbisfile.h>
#include <taglib/wavfile.h>
#include <taglib/xiphcomment.h>

#include <algorithm>
#include <array>
#include <cctype>
#include <charconv>
#include <memory>
#include <optional>
#include <string_view>
#include <utility>

namespace zelvo::music {

using foundation::Cause;
using foundation::fail;
using foundation::Result;

namespace {

using TagLib::ByteVector;
using FilePtr = std::unique_ptr<TagLib::File>;
using LargeBlock = BoundedStream::LargeBlock;

FilePtr openMPEG(BoundedStream& stream) {
    return std::make_unique<TagLib::MPEG::File>(
        &stream, TagLib::ID3v2::FrameFactory::instance(), true);
}

FilePtr openFLAC(BoundedStream& stream) {
    return std::make_unique<TagLib::FLAC::File>(
        &stream, TagLib::ID3v2::FrameFactory::instance(), true);
}

template <class Kind> FilePtr openAs(BoundedStream& stream) {
    return std::make_unique<Kind>(&stream, true);
}

/// An Ogg file may hold several kinds of sound, whatever its name.
FilePtr openOgg(BoundedStream& stream) {
    using namespace TagLib;
    for (const auto open :
         {openAs<Vorbis::File>, openAs<Ogg::Opus::File>, openAs<Ogg::FLAC::File>}) {
        stream.seek(0, BoundedStream::Beginning);
        FilePtr file = open(stream);
        if (file->isValid())
            return file;
    }
    return nullptr;
}

struct Format {
    std::string_view suffix;
    FilePtr (*open)(BoundedStream& stream);
    LargeBlock largeBlock;
};

// clang-format off
constexpr auto kFormats = std::to_array<Format>({
    {".mp3",  &openMPEG,                          LargeBlock::isCutOff},
    {".aac",  &openMPEG,                          LargeBlock::isCutOff},
    {".m4a",  &openAs<TagLib::MP4::File>,         LargeBlock::isZeroed},
    {".m4b",  &openAs<TagLib::MP4::File>,         LargeBlock::isZeroed},
    {".m4p",  &openAs<TagLib::MP4::File>,         LargeBlock::isZeroed},
    {".flac", &openFLAC,                          LargeBlock::isZeroed},
    {".ogg",  &openOgg,                           LargeBlock::isCutOff},
    {".oga",  &openOgg,                           LargeBlock::isCutOff},
    {".opus", &openOgg,                           LargeBlock::isCutOff},
    {".wav",  &openAs<TagLib::RIFF::WAV::File>,   LargeBlock::isCutOff},
    {".aif",  &openAs<TagLib::RIFF::AIFF::File>,  LargeBlock::isCutOff},
    {".aiff", &openAs<TagLib::RIFF::AIFF::File>,  LargeBlock::isCutOff},
    {".aifc", &openAs<TagLib::RIFF::AIFF::File>,  LargeBlock::isCutOff},
});

// clang-format on

std::string suffixOf(const std::filesystem::path& file) {
    std::string suffix = file.extension().string();
    std::ranges::transform(suffix, suffix.begin(), [](unsigned char letter) {
        return static_cast<char>(std::tolower(letter));
    });
    return suffix;
}

const Format* formatOf(const std::filesystem::path& file) {
    const auto* const found = std::ranges::find(kFormats, suffixOf(file), &Format::suffix);
    return found == kFormats.end() ? nullptr : found;
}

std::string textOf(const TagLib::String& text) {
    std::u16string units; // TagLib keeps units of UTF-16 in wide characters
    for (const wchar_t unit : text) {
        if (units.size() > 4 * SongTags::kMaxTextLength)
            break;
        units.push_back(static_cast<char16_t>(unit));
    }
    return cleanText(units, SongTags::kMaxTextLength);
}

std::string textOf(const TagLib::PropertyMap& properties, const char* key) {
    const auto found = properties.find(key);
    return found == properties.end() || found->second.isEmpty() ? "" : textOf(found->second[0]);
}

/// "3", or "3/12" for the third of twelve.
int numberOf(const TagLib::PropertyMap& properties, const char* key) {
    constexpr int kMax = 9999;
    const std::string text = textOf(properties, key);
    int number = 0;
    (void)std::from_chars(text.data(), text.data() + text.size(), number);
    return std::clamp(number, 0, kMax);
}

std::optional<ByteVector> pictureIn(const TagLib::List<TagLib::FLAC::Picture*>& pictures) {
    const TagLib::FLAC::Picture* best = nullptr;
    for (const auto* const picture : pictures) {
        if (best == nullptr || picture->type() == TagLib::FLAC::Picture::FrontCover)
            best = picture;
    }
    return best == nullptr ? std::nullopt : std::optional(best->data());
}

std::optional<ByteVector> pictureIn(const TagLib::ID3v2::Tag* tag) {
    using Frame = TagLib::ID3v2::AttachedPictureFrame;
    const Frame* best = nullptr;
    const auto frames = tag == nullptr ? TagLib::ID3v2::FrameList() : tag->frameList("APIC");
    for (const auto* const frame : frames) {
        const auto* const picture = dynamic_cast<const Frame*>(frame);
        if (picture != nullptr && (best == nullptr || picture->type() == Frame::FrontCover))
            best = picture;
    }
    return best == nullptr ? std::nullopt : std::optional(best->picture());
}

std::optional<ByteVector> pictureIn(const TagLib::MP4::Tag* tag) {
    if (tag == nullptr || !tag->contains("covr"))
        return std::nullopt;
    const auto covers = tag->item("covr").toCoverArtList();
    return covers.isEmpty() ? std::nullopt : std::optional(covers.front().data());
}

std::optional<ByteVector> anyPictureIn(TagLib::File& file) {
    using namespace TagLib;
    if (auto* const flac = dynamic_cast<FLAC::File*>(&file))
        return pictureIn(flac->pictureList());
    if (auto* const mp4 = dynamic_cast<MP4::File*>(&file))
        return pictureIn(mp4->tag());
    if (auto* const mpeg = dynamic_cast<MPEG::File*>(&file))
        return pictureIn(mpeg->ID3v2Tag());
    if (auto* const wav = dynamic_cast<RIFF::WAV::File*>(&file))
        return pictureIn(wav->ID3v2Tag());
    if (auto* const aiff = dynamic_cast<RIFF::AIFF::File*>(&file))
        return pictureIn(aiff->tag());
    if (auto* const comment = dynamic_cast<Ogg::XiphComment*>(file.tag()))
        return pictureIn(comment->pictureList());
    return std::nullopt;
}

std::optional<ByteVector> coverOf(TagLib::File& file) {
    auto picture = anyPictureIn(file);
    const bool isUsable = picture && !picture->isEmpty() && picture->size() <= kMaxCoverBytes;
    return isUsable ? std::move(picture) : std::nullopt;
}

/// An AAC stream without a container (ISO/IEC 13818-7, 6.2), of which TagLib reads only the tag.
bool isBareAAC(const Format& format, BoundedStream& stream) {
    if (format.suffix != ".aac")
        return false;
    stream.seek(0, BoundedStream::Beginning);
    const ByteVector start = stream.readBlock(3);
    const bool isSync = start.size() == 3 && start[0] == '\xFF' && (start[1] & 0xF6) == 0xF0;
    return isSync || start == "ID3";
}

bool isProtected(const Format& format, TagLib::File& file) {
    const auto* const mp4 = dynamic_cast<TagLib::MP4::File*>(&file);
    const auto* const properties = mp4 == nullptr ? nullptr : mp4->audioProperties();
    return format.suffix == ".m4p" || (properties != nullptr && properties->isEncrypted());
}

/// Calls with the open file of a song.
template <class Call>
auto withSong(const std::filesystem::path& path, const std::filesystem::path& name, Call call)
    -> decltype(call(std::declval<const Format&>(), std::declval<TagLib::File&>())) {
    const Format* const format = formatOf(name);
    if (format == nullptr)
        return fail(Cause::malformed, "it is no song");
    BoundedStream stream(path, format->largeBlock);
    if (!stream.isOpen())
        return fail(Cause::unreadable, "it cannot be opened");
    const FilePtr file = format->open(stream);
    const auto* const sound = file ? file->audioProperties() : nullptr;
    const bool isSound = sound != nullptr && file->isValid() && sound->sampleRate() > 0;
    if (!file || (!isSound && !isBareAAC(*format, stream)))
        return fail(Cause::malformed, "it is no sound, or it is damaged");
    return call(*format, *file);
}

SongTags tagsOf(const Format& format, TagLib::File& file) {
    constexpr double kMilliseconds = 1000;
    const TagLib::PropertyMap properties = file.properties();
    const auto* const sound = file.audioProperties();
    return {
        .title = textOf(properties, "TITLE"),
        .album = textOf(properties, "ALBUM"),
        .albumArtist = textOf(properties, "ALBUMARTIST"),
        .artist = textOf(properties, "ARTIST"),
        .track = numberOf(properties, "TRACKNUMBER"),
        .disc = numberOf(properties, "DISCNUMBER"),
        .duration =
            sound == nullptr ? 0 : std::max(sound->lengthInMilliseconds(), 0) / kMilliseconds,
        .hasCover = coverOf(file).has_value(),
        .isProtected = isProtected(format, file)};
}

} // namespace

bool isSong(const std::filesystem::path& file) {
    return formatOf(file) != nullptr;
}

Result<SongTags> readSongTags(const std::filesystem::path& file) {
    return readSongTags(file, file);
}

Result<SongTags>
readSongTags(const std::filesystem::path& file, const std::filesystem::path& name) {
    return withSong(file, name, [](const Format& format, TagLib::File& song) -> Result<SongTags> {
        return tagsOf(format, song);
    });
}

Result<std::vector<std::uint8_t>> readSongCover(const std::filesystem::path& file) {
    using Bytes = std::vector<std::uint8_t>;
    return withSong(file, file, [](const Format&, TagLib::File& song) -> Result<Bytes> {
        const auto picture = coverOf(song);
        if (!picture)
            return fail(Cause::notFound, "it has no cover");
        return Bytes(picture->begin(), picture->end());
    });
}

} // namespace zelvo::music
