// SPDX-License-Identifier: MIT
#pragma once

#include "platform/foundation/RunLoop.h"
#include "platform/media/AVAudioPlayer.h"
#include "platform/media/AudioOutput.h"
#include "shared/MusicFades.h"

#include <array>
#include <filesystem>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace zelvo::audio {

/// The fades of the music. The raw values are used by the interface; 4 and more are invalid.
enum class FadeState { noFade = 0, fadeIn = 1, fadeOut = 2, fadeInOut = 3 };

[[nodiscard]] std::optional<FadeState> fadeStateOf(int rawValue);

struct FadeRow {
    FadeState state;
    std::string_view name; ///< in a performance file
};

/// All of them, in the order of the raw values.
// clang-format off
inline constexpr auto kFades = std::to_array<FadeRow>({
    {FadeState::noFade,    "noFade"   },
    {FadeState::fadeIn,    "fadeIn"   },
    {FadeState::fadeOut,   "fadeOut"  },
    {FadeState::fadeInOut, "fadeInOut"},
});

// clang-format on

[[nodiscard]] constexpr bool hasFadeIn(FadeState state) {
    return state == FadeState::fadeIn || state == FadeState::fadeInOut;
}

[[nodiscard]] constexpr bool hasFadeOut(FadeState state) {
    return state == FadeState::fadeOut || state == FadeState::fadeInOut;
}

/// A piece of music that comes with the program.
struct Track {
    const std::string title;
    const std::string artist;
    const std::string imageName;
    const std::string trackName; ///< file name with extension, such as "Tune.mp3"

    /// The file in the main bundle. A missing file ends the process.
    [[nodiscard]] std::filesystem::path url() const;
};

/// The music of a movie: the file, the part of it that is played, where in the movie it starts, and
/// how it fades.
///
///     song   0 ........ audioIn ============== audioEnd .... totalDuration
///     movie       0 ... audioPreRoll ========= songEnd()
///
/// All times are in seconds. The music starts in the frame nearest to audioPreRoll, on the same
/// sample as in the movie. If the clock starts later or jumps over that frame, this run is silent.
/// Main thread only.
class AudioPlayer {
public:
    /// `movieDuration` returns the movie's current length. `outputFactory` makes the sound outputs;
    /// empty for silence. The run loop must outlive this object.
    AudioPlayer(
        const foundation::RunLoop& runLoop,
        std::function<double()> durationOfMovie,
        media::AudioOutputFactory outputFactory);

    double fadeInDuration = 1.6;
    double fadeOutDuration = 1.9;
    /// Seconds; the fade-out starts and ends this much earlier, so that the end is silent.
    double fadeOutBeginDelay = 0.1;
    FadeState fadeState = FadeState::fadeInOut;
    bool isFadingOut = false; ///< the fade-out of this run has started
    bool isPlaying = false;   ///< the music has started
    std::vector<Track> appTracks;
    std::unique_ptr<media::AVAudioPlayer> avAudioPlayer;
    std::optional<std::string> songTitle;
    std::optional<std::filesystem::path> audioURL;
    double audioPreRoll = 0.0;
    double audioIn = 0.0;
    double audioEnd = 0.0;
    double totalDuration = 0.0;

    /// Called once in a run if the song's file is cut off or taken away while it plays; may be empty.
    std::function<void()> songBrokeOff;

    /// The end of the music, in movie time.
    [[nodiscard]] double songEnd() const { return audioPreRoll + audioEnd - audioIn; }

    /// Takes a song; the part to play starts at its beginning and is as long as the movie, at most.
    /// If the file cannot be played, its name is kept and the earlier song, if any, still sounds.
    /// Open the file first to report errors to the user.
    void loadSong(std::optional<std::filesystem::path> url, std::optional<std::string> title);
    void clearSong();

    /// Call it at every tick of the clock outside an export. `t` is movie time.
    void step(double t);

    void stop();

    /// A run begins at movie time `t`: the music starts if it has begun before and has not ended yet.
    void joinAt(double t);

    /// Starts the player at movie time `t`, which must be within the stretch.
    void startAt(double t);

private:
    [[nodiscard]] shared::MusicFades fades() const;

    const foundation::RunLoop& loop;
    std::function<double()> movieDuration;
    media::AudioOutputFactory makeOutput;
    shared::MusicFades sounding; ///< since the last start
    bool hasToldOfBreak = false; ///< since the last start
};

} // namespace zelvo::audio
