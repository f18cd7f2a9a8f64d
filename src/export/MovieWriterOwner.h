// SPDX-License-Identifier: MIT
#pragma once

#include "platform/foundation/RunLoop.h"

#include <filesystem>
#include <optional>
#include <string>

namespace zelvo::movie {

/// The music of a movie. Times are in seconds; song time counts from the start of the file, movie
/// time from the start of the movie.
struct MusicStretch {
    std::filesystem::path file;
    double audioPreRoll = 0; ///< movie time when the music starts
    double audioIn = 0;      ///< song time where it starts
    double audioEnd = 0;     ///< song time where it ends
    double fadeInDuration = 0;
    double fadeOutDuration = 0;
    double fadeOutBeginDelay = 0; ///< the fade-out ends this long before the end of the music
    bool fadesIn = false;
    bool fadesOut = false;
};

enum class SceneHome { screen, movieRenderer };

/// What MovieWriter needs from its owner.
class MovieWriterOwner {
public:
    virtual ~MovieWriterOwner() = default;

    /// Starts a run from the beginning; its ticks call MovieWriter::renderFrame.
    virtual void start() = 0;
    /// Ends the run and resets the clock to 0.
    virtual void stopAndReset() = 0;
    /// Moves the scene to another renderer. It is done after the calls now queued on the run loop.
    virtual void attachScene(SceneHome home) = 0;

    [[nodiscard]] virtual foundation::RunLoop& runLoop() = 0;
    /// Of the performance, in seconds.
    [[nodiscard]] virtual double duration() const = 0;
    /// Nothing if there is no music.
    [[nodiscard]] virtual std::optional<MusicStretch> music() const = 0;
    virtual void showAlert(const std::string& title, const std::string& message) = 0;
};

} // namespace zelvo::movie
