// SPDX-License-Identifier: MIT
#include "platform/media/AVPlayer.h"

#include <algorithm>
#include <condition_variable>
#include <deque>
#include <mutex>
#include <thread>
#include <utility>

namespace zelvo::media {
namespace {

using foundation::Result;

constexpr std::size_t kMaxAhead = 6;
constexpr std::size_t kMaxBytesAhead = std::size_t{128} << 20U;

std::size_t roomFor(const image::Image& picture) {
    const std::size_t fitting = kMaxBytesAhead / std::max<std::size_t>(picture.pixels.size(), 1);
    return std::clamp<std::size_t>(fitting, 1, kMaxAhead);
}

} // namespace

/// Decodes on its own thread: pictures that follow each other, from the wanted one on.
class AVPlayer::Ahead {
public:
    explicit Ahead(VideoReader opened)
        : format(opened.format())
        , first(opened.picture(0))
        , room(roomFor(*first))
        , reader(std::move(opened))
        , shown(first)
        , wanted(std::min<std::size_t>(1, reader.count() - 1))
        , thread([this] { run(); }) {}

    ~Ahead() {
        {
            const std::lock_guard lock(mutex);
            isStopped = true;
        }
        changed.notify_all();
        thread.join();
    }

    Ahead(const Ahead&) = delete;
    Ahead& operator=(const Ahead&) = delete;

    const VideoFormat format;

    image::ImagePtr pictureAt(double seconds, Patience patience) {
        const std::size_t index = reader.indexAt(seconds);
        if (index == 0) { // be ready for a start
            want(std::min<std::size_t>(1, reader.count() - 1));
            return shown = first;
        }
        want(index);
        std::unique_lock lock(mutex);
        if (patience == Patience::waits)
            changed.wait(lock, [this] { return !ready.empty(); });
        image::ImagePtr passed = std::exchange(late, nullptr);
        if (!ready.empty())
            shown = ready.front();
        else if (passed)
            shown = std::move(passed);
        return shown;
    }

private:
    /// Makes this index the first of the pictures that are ready or come next.
    void want(std::size_t index) {
        {
            const std::lock_guard lock(mutex);
            if (index < wanted) {
                ready.clear();
                late = nullptr;
            }
            for (; wanted < index && !ready.empty(); ++wanted) {
                late = std::move(ready.front());
                ready.pop_front();
            }
            wanted = index;
        }
        changed.notify_all();
    }

    [[nodiscard]] bool hasWork() const {
        return ready.size() < room && wanted + ready.size() < reader.count();
    }

    void run() {
        std::unique_lock lock(mutex);
        for (;;) {
            changed.wait(lock, [this] { return isStopped || hasWork(); });
            if (isStopped)
                return;
            const std::size_t index = wanted + ready.size();
            lock.unlock();
            image::ImagePtr picture = reader.picture(index);
            lock.lock();
            if (index == wanted + ready.size())
                ready.push_back(std::move(picture));
            else if (index < wanted && ready.empty())
                late = std::move(picture);
            changed.notify_all();
        }
    }

    const image::ImagePtr first;
    const std::size_t room;
    VideoReader reader; ///< pictures are decoded on the thread only
    image::ImagePtr shown;
    std::mutex mutex; // guards wanted, ready, late and isStopped
    std::condition_variable changed;
    std::size_t wanted;
    std::deque<image::ImagePtr> ready; ///< the pictures from `wanted` on
    /// The last picture before the wanted one: shown if decoding is too slow for the wanted ones.
    image::ImagePtr late;
    bool isStopped = false;
    std::thread thread;
};

Result<std::shared_ptr<AVPlayer>> AVPlayer::open(const std::filesystem::path& file) {
    auto reader = VideoReader::open(file);
    if (!reader)
        return tl::unexpected(reader.error());
    return std::shared_ptr<AVPlayer>(new AVPlayer(std::move(*reader)));
}

AVPlayer::AVPlayer(VideoReader reader)
    : ahead(std::make_unique<Ahead>(std::move(reader))) {}

AVPlayer::~AVPlayer() = default;

const VideoFormat& AVPlayer::format() const {
    return ahead->format;
}

double AVPlayer::currentTime() const {
    return time;
}

void AVPlayer::seek(CMTime to) {
    seek(to.seconds());
}

void AVPlayer::seek(double seconds) {
    time = std::clamp(seconds, 0.0, format().duration);
}

image::ImagePtr AVPlayer::picture(Patience patience) {
    return ahead->pictureAt(time, patience);
}

} // namespace zelvo::media
