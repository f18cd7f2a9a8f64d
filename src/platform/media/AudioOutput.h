// SPDX-License-Identifier: MIT
#pragma once

#include <functional>
#include <memory>
#include <span>

namespace zelvo::media {

/// A sound device or its replacement. It pulls interleaved stereo at 48 kHz from a source, which it
/// calls on any thread, but never twice at a time.
class AudioOutput {
public:
    /// Must fill the whole span, with silence if there is nothing to play.
    using Source = std::function<void(std::span<float>)>;

    virtual ~AudioOutput() = default;

    /// Calls the source until stop(). Starting twice without a stop is a programming error.
    virtual void start(Source source) = 0;

    /// Silent at once. The source is not called any more after this returns.
    virtual void stop() = 0;

    /// The same, but what has been pulled already is still heard.
    virtual void finish() { stop(); }

    /// Called on the main thread when the sound goes to another device, or to one again after there
    /// was none. The source should go on where the song is by then. May be empty.
    std::function<void()> onDeviceChange;
};

/// Makes an output for each player; returns null for silence.
using AudioOutputFactory = std::function<std::unique_ptr<AudioOutput>()>;

/// The default sound device, whichever it is at a time. It is silent while there is none. Null if there
/// is no Qt event loop to drive it.
[[nodiscard]] std::unique_ptr<AudioOutput> makeSystemAudioOutput();

} // namespace zelvo::media
