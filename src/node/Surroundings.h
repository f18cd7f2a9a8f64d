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

namespace zelvo::node {

enum class DeviceIdiom { phone, tablet };

/// What the stage needs from outside, passed in at start-up. The objects must outlive all nodes;
/// pointers must not be null.
struct Surroundings {
    text::FontRegistry* fonts = nullptr;
    foundation::UserDefaults* defaults = nullptr;
    foundation::RunLoop* runLoop = nullptr;
    /// Shows an alert with the button "Ok"; called on the run loop. If empty, no alerts are shown.
    std::function<void(const std::string& title, const std::string& message)> showAlert;
    DeviceIdiom idiom = DeviceIdiom::tablet;
};

} // namespace zelvo::node
