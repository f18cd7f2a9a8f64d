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

/// What a stage needs around it: a virtual clock, user defaults of its own, the built-in fonts, and
/// a record of the alerts shown.
class TestWorld {
public:
    explicit TestWorld(foundation::UserDefaults ownDefaults = {})
        : defaults(std::move(ownDefaults)) {}

    TestWorld(const TestWorld&) = delete;
    TestWorld& operator=(const TestWorld&) = delete;

    foundation::VirtualRunLoop runLoop;
    foundation::UserDefaults defaults;
    std::vector<std::pair<std::string, std::string>> alerts; ///< title, message

    [[nodiscard]] core::Surroundings surroundings() {
        return {
            &fonts(),
            &defaults,
            &runLoop,
            [this](const std::string& title, const std::string& message) {
                alerts.emplace_back(title, message);
            },
            core::DeviceIdiom::tablet};
    }

    /// The built-in fonts, read once for the process.
    [[nodiscard]] static const text::FontRegistry& fonts() {
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
