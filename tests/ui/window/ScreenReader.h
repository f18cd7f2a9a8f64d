// SPDX-License-Identifier: MIT
#pragma once

#include <memory>
#include <optional>
#include <string>
#include <vector>

using AtspiAccessible = struct _AtspiAccessible;

namespace zelvo::test {

/// What a screen reader knows about an item of the window.
struct Heard {
    std::shared_ptr<AtspiAccessible> item;
    std::string role;        ///< "push button"
    std::string name;        ///< what is read out
    std::string description; ///< what is read out after it
    std::string key;         ///< "Ctrl+Z"; empty: none
    std::vector<std::string> actions;
    std::vector<std::string> states; ///< "focusable"

    [[nodiscard]] bool is(const std::string& state) const;
    [[nodiscard]] bool can(const std::string& action) const;
    /// On one line, for messages.
    [[nodiscard]] std::string line() const;
};

/// Looks at the running program as a screen reader does: through the accessibility bus of the
/// session. It waits patiently, because software graphics on a busy machine take their time.
class ScreenReader {
public:
    ScreenReader();

    /// Everything that is shown now, parents first. Empty while no program is on the bus.
    [[nodiscard]] std::vector<Heard> shown() const;
    /// Empty if there is none now.
    [[nodiscard]] std::optional<Heard> find(const std::string& role, const std::string& name) const;

    /// Waits for an item that is shown and enabled. Fails the test if none comes.
    [[nodiscard]] std::optional<Heard>
    await(const std::string& role, const std::string& name) const;
    /// Waits until no such item is shown. False: it stayed.
    [[nodiscard]] bool awaitGone(const std::string& role, const std::string& name) const;

    // These wait for the item and act on it. False: it did not come, or refused.
    bool press(const std::string& role, const std::string& name) const;
    bool act(const std::string& role, const std::string& name, const std::string& action) const;
    bool write(const std::string& role, const std::string& name, const std::string& text) const;
    bool setValue(const std::string& role, const std::string& name, double value) const;

    /// Of a slider, a wheel or a progress bar; empty: the item has none.
    [[nodiscard]] static std::optional<double> value(const Heard& heard);
    [[nodiscard]] static std::string text(const Heard& heard);

    struct Place {
        int x = 0;
        int y = 0;
    };

    /// The middle of the item on the screen.
    [[nodiscard]] static Place place(const Heard& heard);

    /// The tree as text, for messages.
    [[nodiscard]] std::string tree() const;
};

} // namespace zelvo::test
