// SPDX-License-Identifier: MIT
#pragma once

#include <memory>
#include <string>

using Display = struct _XDisplay;

namespace zelvo::test {

/// Types on the keyboard of the X display and presses its mouse, like a user: the window with the
/// focus gets the keys. Names are those of X: "a", "Return", "F3", "ctrl+e", "ctrl+shift+z".
class RealInput {
public:
    RealInput();

    /// Without a window manager nobody gives a window the focus. False: there is no window yet.
    [[nodiscard]] bool focusWindow() const;

    void click(const std::string& keys) const;
    void press(const std::string& key) const;
    void release(const std::string& key) const;
    void type(const std::string& text) const;
    /// With the left button, at a place of the screen.
    void clickAt(int x, int y) const;

private:
    void send(const std::string& key, bool isDown) const;

    std::shared_ptr<Display> display;
};

} // namespace zelvo::test
