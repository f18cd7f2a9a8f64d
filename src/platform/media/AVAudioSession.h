// SPDX-License-Identifier: MIT
#pragma once

#include "platform/foundation/Result.h"

#include <string>

namespace zelvo::media {

/// The application's access to sound. Here it only checks whether there is a device.
class AVAudioSession {
public:
    /// The only supported category; others would mix, duck or record.
    static constexpr const char* kCategoryPlayback = "AVAudioSessionCategoryPlayback";
    static constexpr const char* kModeDefault = "AVAudioSessionModeDefault";

    /// Error: `unsupported` for any other category or mode.
    [[nodiscard]] static foundation::Result<void>
    setCategory(const std::string& category, const std::string& mode);

    /// Error: `unavailable` if there is no sound device, or no event loop is running.
    [[nodiscard]] static foundation::Result<void> activate();
};

} // namespace zelvo::media
