// SPDX-License-Identifier: MIT
#pragma once

#include "platform/foundation/Result.h"

#include <string>

namespace zelvo::media {

/// What the application is to the machine's sound: here only whether there is a device for it.
class AVAudioSession {
public:
    /// The only category there is; the others would mix, duck or record.
    static constexpr const char* kCategoryPlayback = "AVAudioSessionCategoryPlayback";
    static constexpr const char* kModeDefault = "AVAudioSessionModeDefault";

    /// unsupported for any other category or mode.
    [[nodiscard]] static foundation::Result<void>
    setCategory(const std::string& category, const std::string& mode);

    /// unavailable if the machine has no sound device, or no event loop runs yet.
    [[nodiscard]] static foundation::Result<void> activate();
};

} // namespace zelvo::media
