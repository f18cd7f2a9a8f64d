// SPDX-License-Identifier: MIT
#include "platform/media/AVAudioSession.h"

#include "platform/media/AudioOutput.h"

namespace zelvo::media {

using foundation::Cause;
using foundation::fail;
using foundation::Result;

Result<void> AVAudioSession::setCategory(const std::string& category, const std::string& mode) {
    if (category == kCategoryPlayback && mode == kModeDefault)
        return {};
    return fail(Cause::unsupported, "No sound of category " + category + ", mode " + mode + ".");
}

Result<void> AVAudioSession::activate() {
    if (makeSystemAudioOutput())
        return {};
    return fail(Cause::unavailable, "This machine has no sound device; the music stays silent.");
}

} // namespace zelvo::media
