// SPDX-License-Identifier: MIT
#include "platform/media/FrameEncoder.h"

#include "platform/foundation/Check.h"

#include <ctime>
#include <system_error>
#include <utility>

namespace zelvo::media {
namespace {

using foundation::Cause;
using foundation::Error;
using foundation::Result;

/// Enough to bridge a slow key frame; needs 25 MB at 1920 x 1080.
constexpr std::size_t kFramesAhead = 3;

double threadSeconds() {
    timespec used{};
    clock_gettime(CLOCK_THREAD_CPUTIME_ID, &used);
    return static_cast<double>(used.tv_sec) + 1e-9 * static_cast<double>(used.tv_nsec);
}

} // namespace

FrameEncoder::FrameEncoder(MovieFile movie)
    : path(movie.path())
    , file(std::move(movie))
    , frames(kFramesAhead) {}

FrameEncoder::~FrameEncoder() {
    cancel();
}

Result<void> FrameEncoder::start(const VideoSettings& settings) {
    CHECK(status_ == Status::unknown, "writing has started before");
    const auto begin = [&]() -> Result<void> {
        auto opened = VideoEncoder::open(settings);
        if (!opened)
            return tl::unexpected(opened.error());
        video.emplace(std::move(*opened));
        AVCodecParameters* parameters = avcodec_parameters_alloc();
        avcodec_parameters_from_context(parameters, &video->context());
        track = file->addTrack(*parameters, video->context().time_base);
        avcodec_parameters_free(&parameters);
        return file->begin();
    };
    status_ = Status::writing;
    if (auto begun = begin(); !begun) {
        fail(begun.error());
        file.reset();
        return begun;
    }
    thread = std::thread([this] { run(); });
    return {};
}

void FrameEncoder::setSessionStart(CMTime time) {
    CHECK(status_ != Status::unknown, "a session starts after startWriting");
    sessionStart = time;
}

bool FrameEncoder::isReady() const {
    return status_ != Status::unknown && frames.hasRoom();
}

void FrameEncoder::waitUntilReady() const {
    CHECK(status_ != Status::unknown, "waiting for a writer that has not started");
    frames.waitForRoom();
}

Result<void> FrameEncoder::append(PixelBuffer picture, CMTime time) {
    if (status_ == Status::failed)
        return tl::unexpected(error());
    if (status_ != Status::writing) {
        return foundation::fail(Cause::cancelled, "The movie is no longer being written.");
    }
    CHECK(frames.hasRoom(), "a frame was appended to an input that is not ready");
    CHECK(
        time > lastTime && time >= sessionStart,
        "frame at {} s after one at {} s",
        time.seconds(),
        lastTime.seconds());
    lastTime = time;
    frames.push({std::move(picture), time - sessionStart});
    return {};
}

void FrameEncoder::finish(std::function<void()> whenDone) {
    {
        const std::lock_guard lock(mutex);
        if (thread.joinable() && !hasEnded)
            completion = std::exchange(whenDone, nullptr);
    }
    frames.close();
    if (whenDone)
        whenDone(); // never started, failed at once, or already ended
}

void FrameEncoder::cancel() {
    // Either this or the thread's end sets the final status, not both.
    auto expected = Status::writing;
    const bool wasWriting = status_.compare_exchange_strong(expected, Status::cancelled);
    frames.abandon();
    if (thread.joinable())
        thread.join();
    if (status_ == Status::unknown)
        status_ = Status::cancelled;
    file.reset();
    if (!wasWriting)
        return;
    std::error_code ignored; // the thread may already have closed the file
    std::filesystem::remove(path, ignored);
}

Error FrameEncoder::error() const {
    const std::lock_guard lock(mutex);
    return error_;
}

void FrameEncoder::run() {
    auto result = encodeAll();
    if (result && status_ == Status::writing)
        result = file->finish().and_then([this] { return file->commit(); });
    if (!result)
        fail(result.error());
    auto expected = Status::writing;
    status_.compare_exchange_strong(expected, Status::completed);
    video.reset();
    file.reset();
    std::function<void()> whenDone;
    {
        const std::lock_guard lock(mutex);
        hasEnded = true;
        whenDone = std::move(completion);
    }
    if (whenDone)
        whenDone();
}

Result<void> FrameEncoder::encodeAll() {
    const auto sink = [this](AVPacket& packet) { return writePacket(packet); };
    bool isEmpty = true;
    while (auto frame = frames.pop()) {
        if (auto encoded = video->encode(frame->picture, frame->time, sink); !encoded) {
            return encoded;
        }
        isEmpty = false;
        encodingSeconds_ = threadSeconds();
    }
    if (status_ != Status::writing)
        return {};
    if (isEmpty)
        return foundation::fail(Cause::malformed, "The movie has no frames.");
    auto finished = video->finish(sink);
    encodingSeconds_ = threadSeconds();
    return finished;
}

Result<void> FrameEncoder::writePacket(AVPacket& packet) {
    return file->write(packet, track);
}

void FrameEncoder::fail(Error why) {
    {
        const std::lock_guard lock(mutex);
        error_ = std::move(why);
    }
    auto expected = Status::writing;
    status_.compare_exchange_strong(expected, Status::failed);
    frames.abandon();
}

} // namespace zelvo::media
