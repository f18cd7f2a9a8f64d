// SPDX-License-Identifier: MIT
#pragma once

#include <functional>
#include <string>

namespace zelvo::foundation {
class RunLoop;
class UserDefaults;
} // namespace zelvo::foundation

namespace zelvo::text {
class FontRegistry;
} // namespace zelvo::text

namespace zelvo::core {

enum class DeviceIdiom { phone, tablet };

/// What the stage needs of the world around it, handed in at start-up. What the pointers name
/// outlives every node; none of them may be null.
struct Surroundings {
    const text::FontRegistry* fonts = nullptr;
    foundation::UserDefaults* defaults = nullptr;
    foundation::RunLoop* runLoop = nullptr;
    /// The general alert with the one action "Ok"; called from the run loop. May be empty: then
    /// nobody is told.
    std::function<void(const std::string& title, const std::string& message)> showAlert;
    DeviceIdiom idiom = DeviceIdiom::tablet;
};

} // namespace zelvo::core
