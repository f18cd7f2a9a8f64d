// SPDX-License-Identifier: MIT
#pragma once

#include "platform/foundation/RunLoop.h"

#include <filesystem>
#include <optional>
#include <string>

namespace zelvo::movie {

/// The piece of music under a movie. Seconds; song time counts from the file's beginning, movie
/// time from the movie's.
struct MusicStretch {
    std::filesystem::path file;
    double audioPreRoll = 0; ///< movie time at which the stretch begins to sound
    double audioIn = 0;      ///< song time at which it begins
    double audioEnd = 0;     ///< song time at which it ends
    double fadeInDuration = 0;
    double fadeOutDuration = 0;
    double fadeOutBeginDelay = 0; ///< how long before the end of the stretch silence is reached
    bool fadesIn = false;
    bool fadesOut = false;
};

enum class SceneHome { screen, movieRenderer };

/// What MovieWriter needs of the object that owns it.
class MovieWriterOwner {
public:
    virtual ~MovieWriterOwner() = default;

    /// Begins a run from the beginning; its ticks call MovieWriter::renderFrame.
    virtual void start() = 0;
    /// Ends a run and takes the clock back to 0.
    virtual void stopAndReset() = 0;
    /// Moves the scene; done when what is queued on the run loop now has run.
    virtual void attachScene(SceneHome home) = 0;

    [[nodiscard]] virtual foundation::RunLoop& runLoop() = 0;
    /// Of the performance, seconds.
    [[nodiscard]] virtual double duration() const = 0;
    /// Absent without music.
    [[nodiscard]] virtual std::optional<MusicStretch> music() const = 0;
    virtual void showAlert(const std::string& title, const std::string& message) = 0;
};

} // namespace zelvo::movie
