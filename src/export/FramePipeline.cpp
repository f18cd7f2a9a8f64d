// SPDX-License-Identifier: MIT
#include "export/FramePipeline.h"

namespace zelvo::movie {

using foundation::Result;

Result<void> FramePipeline::submit(const render::FrameRequest& request, const FrameStamp& stamp) {
    if (source.framesInFlight() >= FrameSource::kFramesInFlight) {
        if (auto handedOn = handOnOldest(); !handedOn)
            return handedOn;
    }
    source.begin(request);
    stamps.push_back(stamp);
    return {};
}

Result<void> FramePipeline::drain() {
    while (!stamps.empty()) {
        if (auto handedOn = handOnOldest(); !handedOn)
            return handedOn;
    }
    return {};
}

void FramePipeline::discard() {
    while (!stamps.empty()) {
        stamps.pop_front();
        static_cast<void>(source.finish());
    }
}

Result<void> FramePipeline::handOnOldest() {
    const FrameStamp stamp = stamps.front();
    stamps.pop_front();
    return taker(source.finish(), stamp);
}

} // namespace zelvo::movie
