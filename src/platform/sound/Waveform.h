// SPDX-License-Identifier: MIT
#pragma once

#include "platform/foundation/Lifetime.h"
#include "platform/foundation/Result.h"
#include "platform/foundation/RunLoop.h"

#include <filesystem>
#include <functional>
#include <memory>
#include <optional>
#include <vector>

namespace zelvo::sound {

/// How loud a song is over its time: the means of each 6000 absolute samples of its first channel, at
/// the file's own rate. What is left at the end of the file is dropped.
///
///     samples  |0 ........ 5999|6000 ...... 11999|12000 ... end
///     values   |       0       |        1        |  dropped
///
/// The song is decoded on another thread, in pieces, and never lies in memory as a whole. Values are
/// added from the left. When another song is loaded, no value of the one before is given out any
/// more. Main thread only.
class Waveform {
public:
    static constexpr int kSamplesPerValue = 6000;
    /// More are not collected: this is a day of sound at 192 kHz.
    static constexpr std::size_t kMaxValues = 24UL * 60 * 60 * 192000 / kSamplesPerValue;

    /// `changed` is called by the run loop when values have been added, at the end of the song, and if
    /// it cannot be read; never inside load() or clear(). It may be empty.
    Waveform(foundation::RunLoop& runLoop, std::function<void()> changed);
    /// Gives up; waits for the thread, which ends soon.
    ~Waveform();
    Waveform(const Waveform&) = delete;
    Waveform& operator=(const Waveform&) = delete;

    /// Begins anew with this song. Gives up at once what was being loaded.
    void load(const std::filesystem::path& song);
    /// Gives up at once, and drops the values.
    void clear();

    /// 0 to 1.
    [[nodiscard]] const std::vector<float>& values() const { return values_; }

    /// 0 until the first values are there.
    [[nodiscard]] double valuesASecond() const { return valuesASecond_; }

    [[nodiscard]] bool isLoading() const { return job != nullptr; }

    /// Why the song has no values.
    [[nodiscard]] const std::optional<foundation::Error>& error() const { return error_; }

private:
    struct Piece;
    class Job;
    void decodeNext();
    void take(const std::shared_ptr<Job>& from, const Piece& piece);

    foundation::RunLoop& loop;
    std::function<void()> tellChange;
    std::vector<float> values_;
    double valuesASecond_ = 0.0;
    std::optional<foundation::Error> error_;
    std::shared_ptr<Job> job; ///< null if nothing is being loaded
    std::unique_ptr<foundation::SerialQueue> queue;
    foundation::Lifetime lifetime;
};

} // namespace zelvo::sound
