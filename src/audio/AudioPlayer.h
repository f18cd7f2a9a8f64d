// SPDX-License-Identifier: MIT
#pragma once

#include "platform/foundation/RunLoop.h"
#include "platform/media/AVAudioPlayer.h"
#include "platform/media/AudioOutput.h"

#include <array>
#include <filesystem>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace zelvo::audio {

/// Which fades apply to the stretch of music. Raw values as listed; 4 and more is no state.
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

/// A piece of music that comes with the application.
struct Track {
    const std::string title;
    const std::string artist;
    const std::string imageName;
    const std::string trackName; ///< file name with its type, "Tune.mp3"

    /// The file in the main bundle. Ends the process if it is not there.
    [[nodiscard]] std::filesystem::path url() const;
};

/// The one piece of music of a movie: which file, which stretch of it, where in the movie it
/// begins, how it fades.
///
///     song   0 ........ audioIn ============== audioEnd .... totalDuration
///     movie       0 ... audioPreRoll ========= songEnd()
///
/// All times are seconds. The stretch starts with the step of the frame that is nearest to
/// audioPreRoll, on the same sample as in the movie, or up to a frame later: a clock that jumps
/// over that, or starts behind it, leaves the pass silent. Main thread only.
class AudioPlayer {
public:
    /// `movieDuration` tells the movie's present length. Players are made with an output of the
    /// factory; an empty factory plays silently. The run loop outlives this.
    AudioPlayer(
        const foundation::RunLoop& runLoop,
        std::function<double()> durationOfMovie,
        media::AudioOutputFactory outputFactory);

    double fadeInDuration = 1.6;
    double fadeOutDuration = 1.9;
    double fadeOutBeginDelay =
        0.1; ///< the fade-out begins so much earlier, and silence comes before the end
    FadeState fadeState = FadeState::fadeInOut;
    bool isFadingOut = false; ///< the fade-out of this pass has been started
    bool isPlaying = false;   ///< the stretch has been started
    std::vector<Track> appTracks;
    std::unique_ptr<media::AVAudioPlayer> avAudioPlayer;
    std::optional<std::string> songTitle;
    std::optional<std::filesystem::path> audioURL;
    double audioPreRoll = 0.0;
    double audioIn = 0.0;
    double audioEnd = 0.0;
    double totalDuration = 0.0;

    /// When the stretch ends, in movie time.
    [[nodiscard]] double songEnd() const { return audioPreRoll + audioEnd - audioIn; }

    /// Takes the song and trims it to the movie's length from its beginning. A file that cannot be
    /// played is kept by name while the earlier song, if any, goes on sounding; callers who want to
    /// tell the user open the file first.
    void loadSong(std::optional<std::filesystem::path> url, std::optional<std::string> title);
    void clearSong();

    /// At every tick of the clock outside an export, with the movie time.
    void step(double t);

    void stop();

private:
    void startStretch();

    const foundation::RunLoop& loop;
    std::function<double()> movieDuration;
    media::AudioOutputFactory makeOutput;
};

/// At the application's start. Without a sound device a line is logged, and the application goes
/// on.
void setUpAudioSession();

} // namespace zelvo::audio
