// SPDX-License-Identifier: MIT
#include "platform/text/SystemFontIndex.h"

#include <chrono>
#include <future>
#include <thread>
#include <utility>

namespace zelvo::text {

namespace {

using Reading = std::shared_future<std::vector<SystemFont>>;

Reading startReading() {
    std::packaged_task<std::vector<SystemFont>()> task(&systemFonts);
    Reading reading = task.get_future().share();
    std::thread(std::move(task)).detach();
    return reading;
}

const Reading& reading() {
    static const Reading started = startReading();
    return started;
}

} // namespace

const std::vector<SystemFont>* systemFontsIfRead() {
    const bool isRead = reading().wait_for(std::chrono::seconds(0)) == std::future_status::ready;
    return isRead ? &reading().get() : nullptr;
}

const std::vector<SystemFont>& awaitedSystemFonts() {
    return reading().get();
}

} // namespace zelvo::text
