// SPDX-License-Identifier: MIT
#include "platform/music/SongTags.h"

#include "music/MusicFixture.h"
#include "platform/music/CleanText.h"
#include "platform/music/TagReader.h"

#include <gmock/gmock.h>
#include <zlib.h>

#include <algorithm>
#include <fstream>

namespace zelvo::music {
namespace {

using foundation::Cause;
using media::Bytes;

class SongTagsTest : public media::MediaTest {};

struct Kind {
    const char* file;
    const char* encoder;
};

constexpr auto kKinds = std::to_array<Kind>({
    {"song.mp3", "libmp3lame"},
    {"song.m4a", "aac"},
    {"song.flac", "flac"},
    {"song.ogg", "libvorbis"},
    {"song.opus", "libopus"},
    {"song.wav", "pcm_s16le"},
    {"song.aiff", "pcm_s16be"},
});

const Tags kTags{
    {"TITLE", "Größer"},
    {"ALBUM", "Nacht"},
    {"ALBUMARTIST", "Viele"},
    {"ARTIST", "Eine"},
    {"TRACKNUMBER", "3/12"},
    {"DISCNUMBER", "2/2"}};

void put(Bytes& bytes, const std::string& text) {
    bytes.insert(bytes.end(), text.begin(), text.end());
}

/// Seven bits to a byte, as ID3v2 writes sizes.
void putSynchsafe(Bytes& bytes, std::uint32_t size) {
    for (const unsigned shift : {21U, 14U, 7U, 0U})
        bytes.push_back(static_cast<std::uint8_t>((size >> shift) & 0x7FU));
}

void putFrame(Bytes& tag, const std::string& name, std::uint32_t size, std::uint8_t flags) {
    put(tag, name);
    putSynchsafe(tag, size);
    tag.push_back(0);
    tag.push_back(flags);
}

/// The tag, of this size with what is missing, in front of the sound.
void writeTagged(const std::filesystem::path& file, const Bytes& frames, std::uint32_t size) {
    const Bytes sound = media::readBytes(file);
    Bytes head;
    put(head, "ID3");
    head.insert(head.end(), {4, 0, 0});
    putSynchsafe(head, size);
    head.insert(head.end(), frames.begin(), frames.end());
    std::ofstream out(file, std::ios::binary);
    out.write(
        reinterpret_cast<const char*>(head.data()), static_cast<std::streamsize>(head.size()));
    out.seekp(10 + size);
    out.write(
        reinterpret_cast<const char*>(sound.data()), static_cast<std::streamsize>(sound.size()));
}

TEST_F(SongTagsTest, AreReadFromEveryKindOfFile) {
    for (const Kind& kind : kKinds) {
        const auto song = file(kind.file);
        ASSERT_TRUE(media::encodeSound(song, kind.encoder, 0.5, media::sine(440, 0.5), 48000));
        writeTags(song, kTags);
        const auto tags = readSongTags(song);
        ASSERT_TRUE(tags) << kind.file << ": " << tags.error().message;
        const SongTags expected{"Größer", "Nacht", "Viele", "Eine", 3, 2, tags->duration};
        EXPECT_EQ(*tags, expected) << kind.file;
        EXPECT_NEAR(tags->duration, 0.5, 0.1) << kind.file;
    }
}

TEST_F(SongTagsTest, GiveTheFrontCover) {
    const auto song = file("song.aiff");
    ASSERT_TRUE(media::encodeSound(song, "pcm_s16be", 0.1, media::sine(440, 0.5)));
    using Frame = TagLib::ID3v2::AttachedPictureFrame;
    TagLib::RIFF::AIFF::File opened(song.c_str());
    for (const auto type : {Frame::BackCover, Frame::FrontCover, Frame::Artist}) {
        auto* const frame = new Frame; // the tag deletes it
        frame->setType(type);
        frame->setPicture(TagLib::ByteVector(3, type == Frame::FrontCover ? 'F' : 'x'));
        opened.tag()->addFrame(frame);
    }
    ASSERT_TRUE(opened.save());
    EXPECT_TRUE(readSongTags(song)->hasCover);
    EXPECT_EQ(readCover(song).value(), Bytes(3, 'F'));
}

TEST_F(SongTagsTest, SurviveACoverOf100MB) {
    constexpr std::uint32_t kCover = 100U << 20U;
    const auto song = file("song.mp3");
    ASSERT_TRUE(media::encodeSound(song, "libmp3lame", 0.5, media::sine(440, 0.5)));
    Bytes frames;
    putFrame(frames, "TIT2", 6, 0);
    put(frames, std::string("\x03") + "Title");
    putFrame(frames, "APIC", kCover, 0);
    writeTagged(song, frames, static_cast<std::uint32_t>(frames.size()) + kCover);
    const auto tags = readTags(std::vector{song});
    ASSERT_TRUE(tags && tags->front());
    EXPECT_EQ(tags->front()->title, "Title");
    EXPECT_FALSE(tags->front()->hasCover);
}

/// Half a megabyte that grows to more memory than the helper may have.
Bytes bomb() {
    constexpr std::size_t kUnpacked = 400U << 20U;
    const Bytes zeros(kUnpacked, 'x');
    auto size = compressBound(kUnpacked);
    Bytes packed(size);
    compress2(packed.data(), &size, zeros.data(), kUnpacked, 1);
    packed.resize(size);
    return packed;
}

TEST_F(SongTagsTest, OfOneHostileFileDoNotCostTheOthers) {
    std::vector<std::filesystem::path> songs;
    for (const char* const name : {"first.mp3", "bomb.mp3", "last.mp3"}) {
        songs.push_back(file(name));
        ASSERT_TRUE(media::encodeSound(songs.back(), "libmp3lame", 0.2, media::sine(440, 0.5)));
        writeTags(songs.back(), {{"TITLE", name}});
    }
    const Bytes packed = bomb();
    const auto size = static_cast<std::uint32_t>(packed.size());
    Bytes frames;
    putFrame(frames, "TIT2", size + 4, 0x09); // compressed, with its length
    putSynchsafe(frames, 1);
    frames.insert(frames.end(), packed.begin(), packed.end());
    writeTagged(songs[1], frames, static_cast<std::uint32_t>(frames.size()));
    const auto tags = readTags(songs);
    ASSERT_TRUE(tags);
    ASSERT_EQ(tags->size(), 3);
    EXPECT_EQ(tags->at(0).value().title, "first.mp3");
#if !defined(__SANITIZE_ADDRESS__) && !defined(__SANITIZE_THREAD__) // they lift the limit of memory
    ASSERT_FALSE(tags->at(1));
    EXPECT_EQ(tags->at(1).error().cause, Cause::tooLarge);
#endif
    EXPECT_EQ(tags->at(2).value().title, "last.mp3");
}

TEST_F(SongTagsTest, AreNotReadFromWhatIsNoSound) {
    const Bytes text(5000, 'a');
    for (const char* const name : {"text.mp3", "text.aac", "text.m4a", "text.ogg", "text.wav"}) {
        media::writeBytes(file(name), text);
        EXPECT_EQ(readSongTags(file(name)).error().cause, Cause::malformed) << name;
    }
    EXPECT_EQ(readSongTags(file("missing.mp3")).error().cause, Cause::unreadable);
    std::filesystem::create_directory(file("folder.mp3"));
    EXPECT_EQ(readSongTags(file("folder.mp3")).error().cause, Cause::unreadable);
}

TEST_F(SongTagsTest, OfDamagedFilesAreShortAndOnOneLine) {
    for (const Kind& kind : kKinds) {
        const auto song = file(kind.file);
        ASSERT_TRUE(media::encodeSound(song, kind.encoder, 0.1, media::sine(440, 0.5), 48000));
        writeTags(song, kTags);
        const Bytes whole = media::readBytes(song);
        for (std::size_t at = 0; at < whole.size();
             at += std::max<std::size_t>(whole.size() / 97, 1)) {
            Bytes damaged = whole;
            damaged[at] ^= 0xA5U;
            for (const auto& bytes :
                 {Bytes(whole.begin(), whole.begin() + static_cast<long>(at)), damaged}) {
                media::writeBytes(song, bytes);
                const SongTags tags = readSongTags(song).value_or(SongTags());
                EXPECT_LE(tags.title.size(), 4 * SongTags::kMaxTextLength);
                EXPECT_EQ((tags.title + tags.album).find_first_of("\n\t"), std::string::npos);
            }
        }
    }
}

struct TextRow {
    std::u16string units;
    std::string expected;
};

TEST(CleanText, MakesOneReadableLine) {
    const auto kRows = std::to_array<TextRow>({
        {u"Gr\u00C3\u00B6\u00C3\u009Fer", "Größer"},     // UTF-8 as Latin-1
        {u"It\u0092s \u0093us\u0094", "It’s “us”"},      // Windows-1252 as Latin-1
        {u"D\u00E9j\u00E0 vu", "Déjà vu"},               // Latin-1 as itself
        {u"  a\r\n\tb\u0001c\u001B[31m", "a bc[31m"},    // control characters
        {u"\u202Egnp.exe\u2066", "gnp.exe"},             // turned around
        {u"x\xD800y", "xy"},                             // half of a pair
        {u"\xD83C\xDFB5 Tune", "\xF0\x9F\x8E\xB5 Tune"}, // a whole pair
    });
    for (const TextRow& row : kRows)
        EXPECT_EQ(cleanText(row.units, 100), row.expected);
    EXPECT_EQ(cleanText(std::u16string(1000, u'ä'), 100).size(), 200);
}

} // namespace
} // namespace zelvo::music
