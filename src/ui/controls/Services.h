// SPDX-License-Identifier: MIT
#pragma once

namespace zelvo::core {
class Model;
}

namespace zelvo::foundation {
class RunLoop;
class UserDefaults;
} // namespace zelvo::foundation

namespace zelvo::ui {

class Alerts;

/// What the controllers of the interface work on. All of it outlives them.
struct Services {
    core::Model& model;
    foundation::RunLoop& runLoop;
    foundation::UserDefaults& defaults;
    Alerts& alerts;
};

} // namespace zelvo::ui
