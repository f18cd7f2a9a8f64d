// SPDX-License-Identifier: MIT
#pragma once

namespace zelvo::content {
class FontManager;
}

namespace zelvo::model {
class Model;
}

namespace zelvo::foundation {
struct Folders;
class RunLoop;
class UserDefaults;
} // namespace zelvo::foundation

namespace zelvo::ui {

class Alerts;

/// The objects that the controllers of the interface use. All must outlive the controllers.
struct Services {
    model::Model& model;
    foundation::RunLoop& runLoop;
    foundation::UserDefaults& defaults;
    Alerts& alerts;
    content::FontManager& fonts;
    const foundation::Folders& folders;
};

} // namespace zelvo::ui
