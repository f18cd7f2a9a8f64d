// SPDX-License-Identifier: MIT
#include "ui/audio/AudioImporter.h"

#include "audio/AudioPlayer.h"
#include "media/MediaFixture.h"
#include "ui/UiFixture.h"

#include <gmock/gmock.h>

#include <filesystem>
#include <fstream>
#include <string>
#include <vector>

namespace zelvo::ui {
namespace {

namespace fs = std::filesystem;
using testing::ElementsAre;
using testing::HasSubstr;

class AudioImporterTest : public test::UiTest {
protected:
    AudioImporterTest() {
        importer.didArrive = [this](const fs::path& song, const std::string& title) {
            player.loadSong(song, title);
        };
    }

    fs::path write(const std::string& name, const std::string& bytes) {
        std::ofstream(given.path() / name, std::ios::binary) << bytes;
        return given.path() / name;
    }

    fs::path wav(const std::string& name, double seconds) {
        media::writeWav(given.path() / name, 8000, seconds, media::sine(440, 0.5));
        return given.path() / name;
    }

    void import(const fs::path& file) {
        importer.load(file);
        loop().runFor(1);
    }

    /// The names of the songs that were copied.
    [[nodiscard]] std::vector<std::string> kept() const {
        std::vector<std::string> names;
        for (const auto& entry : fs::directory_iterator(folders.documents / "importedAudio"))
            names.push_back(entry.path().filename().string());
        return names;
    }

    test::TemporaryFolder given;
    audio::AudioPlayer& player = model.audioPlayer();
    AudioImporter importer{services};
};

TEST_F(AudioImporterTest, ACopyIsTakenAndReplacesTheSongBefore) {
    const fs::path first = wav("first.wav", 3);
    import(first);
    EXPECT_THAT(kept(), ElementsAre("first.wav"));
    EXPECT_EQ(player.songTitle, "first.wav");
    EXPECT_TRUE(fs::exists(first)) << "the user keeps the file";
    import(wav("second.wav", 4));
    EXPECT_THAT(kept(), ElementsAre("second.wav"));
    EXPECT_EQ(player.audioURL, folders.documents / "importedAudio" / "second.wav");
    EXPECT_NEAR(player.totalDuration, 4, 1e-6);
    import(wav("second.wav", 5));
    EXPECT_NEAR(player.totalDuration, 5, 1e-6) << "another file of the same name";
    import(*player.audioURL);
    EXPECT_THAT(kept(), ElementsAre("second.wav")) << "the copy itself";
    EXPECT_FALSE(alerts.isShowing());
}

TEST_F(AudioImporterTest, WhatCannotBeDecodedSaysSoAndTheSongBeforeStays) {
    import(wav("good.wav", 3));
    fs::copy_file(given.path() / "good.wav", given.path() / "broken.wav");
    std::fstream(given.path() / "broken.wav", std::ios::in | std::ios::out | std::ios::binary)
            .seekp(20)
        << "??";
    fs::create_directory(given.path() / "folder.mp3");
    for (const fs::path& file :
         {write("noise.mp3", std::string(3000, 'x')),
          write("empty.ogg", ""),
          given.path() / "broken.wav",
          given.path() / "folder.mp3",
          given.path() / "missing.flac"}) {
        SCOPED_TRACE(file.string());
        import(file);
        EXPECT_EQ(alerts.title(), "The music cannot be imported.");
        EXPECT_THAT(alerts.message().toStdString(), HasSubstr(file.filename().string()));
        EXPECT_EQ(alerts.message().count('/'), 0) << "no paths";
        answer("Ok");
        EXPECT_THAT(kept(), ElementsAre("good.wav"));
        EXPECT_EQ(player.songTitle, "good.wav");
    }
}

TEST_F(AudioImporterTest, AllUsualFormatsAreTaken) {
    struct Row {
        const char* file;
        const char* encoder;
    };

    for (const auto& [file, encoder] :
         {Row{"a.mp3", "libmp3lame"},
          {"a.m4a", "aac"},
          {"a.flac", "flac"},
          {"a.ogg", "libvorbis"},
          {"a.opus", "libopus"},
          {"a.wav", "pcm_s16le"},
          {"a.aiff", "pcm_s16be"},
          {"a.mp4", "aac"}}) {
        SCOPED_TRACE(file);
        ASSERT_TRUE(
            media::encodeSound(given.path() / file, encoder, 3, media::sine(440, 0.5), 48000));
        import(given.path() / file);
        EXPECT_THAT(kept(), ElementsAre(file));
        EXPECT_NEAR(player.totalDuration, 3, 0.1);
    }
}

TEST_F(AudioImporterTest, TheLastOfSeveralCountsAndAHeldOneWaits) {
    import(wav("before.wav", 3));
    importer.load(wav("first.wav", 3));
    importer.load(wav("second.wav", 3));
    loop().runFor(1);
    EXPECT_THAT(kept(), ElementsAre("second.wav"));

    importer.setHeld(true); // a movie is being made of second.wav
    import(wav("second.wav", 4));
    EXPECT_NEAR(player.totalDuration, 3, 1e-6);
    EXPECT_LT(fs::file_size(*player.audioURL), 4 * 16000) << "its file has not changed";
    importer.setHeld(false);
    EXPECT_NEAR(player.totalDuration, 4, 1e-6);
    importer.load(wav("broken off.wav", 3));
}

} // namespace
} // namespace zelvo::ui
