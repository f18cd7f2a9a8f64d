// SPDX-License-Identifier: MIT
#pragma once

#include <functional>
#include <memory>
#include <span>

namespace zelvo::media {

/// A sound device, or what stands in for one. It takes interleaved stereo at 48 kHz from a source,
/// which it calls on any thread, one call at a time.
class AudioOutput {
public:
    /// Fills the whole span; silence where there is nothing to play.
    using Source = std::function<void(std::span<float>)>;

    virtual ~AudioOutput() = default;

    /// Takes from the source until stop(). A second start without a stop is a programming error.
    virtual void start(Source source) = 0;

    /// The source is not called any more once this returns.
    virtual void stop() = 0;
};

/// Makes one output for each player; none (null) where sound is not to be heard.
using AudioOutputFactory = std::function<std::unique_ptr<AudioOutput>()>;

/// The default sound device; null if the machine has none, or no event loop of the interface's
/// library is there to drive it.
[[nodiscard]] std::unique_ptr<AudioOutput> makeSystemAudioOutput();

} // namespace zelvo::media
