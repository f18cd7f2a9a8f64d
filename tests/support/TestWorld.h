// SPDX-License-Identifier: MIT
#pragma once

#include "content/FontManager.h"
#include "node/Surroundings.h"
#include "platform/foundation/Folders.h"
#include "platform/foundation/RunLoop.h"
#include "platform/foundation/UserDefaults.h"

#include <string>
#include <utility>
#include <vector>

namespace zelvo::test {

/// The surroundings of a stage: a virtual clock, separate user defaults, the built-in fonts, and a
/// list of the alerts shown.
class TestWorld {
public:
    explicit TestWorld(foundation::UserDefaults ownDefaults = {})
        : defaults(std::move(ownDefaults)) {}

    TestWorld(const TestWorld&) = delete;
    TestWorld& operator=(const TestWorld&) = delete;

    foundation::VirtualRunLoop runLoop;
    foundation::UserDefaults defaults;
    std::vector<std::pair<std::string, std::string>> alerts; ///< title, message

    [[nodiscard]] node::Surroundings surroundings() {
        return {
            &fonts(),
            &defaults,
            &runLoop,
            [this](const std::string& title, const std::string& message) {
                alerts.emplace_back(title, message);
            },
            node::DeviceIdiom::tablet};
    }

    /// The built-in fonts, read once for the process.
    [[nodiscard]] static text::FontRegistry& fonts() {
        static text::FontRegistry registry;
        static const bool isFilled = [] {
            content::FontManager(registry).registerBuiltIns(foundation::mainBundle());
            return true;
        }();
        static_cast<void>(isFilled);
        return registry;
    }
};

} // namespace zelvo::test
