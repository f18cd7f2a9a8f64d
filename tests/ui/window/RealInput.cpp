// SPDX-License-Identifier: MIT
#include "ui/window/RealInput.h"

#include <X11/Xlib.h>
#include <X11/extensions/XTest.h>
#include <X11/keysym.h>

#include <cctype>
#include <chrono>
#include <sstream>
#include <stdexcept>
#include <thread>
#include <vector>

namespace zelvo::test {

namespace {

/// A hand is not faster, and the program must get each key on its own.
constexpr auto kBetweenKeys = std::chrono::milliseconds(60);

[[nodiscard]] std::string xName(const std::string& key) {
    if (key == "ctrl")
        return "Control_L";
    if (key == "shift")
        return "Shift_L";
    return key;
}

[[nodiscard]] std::vector<std::string> partsOf(const std::string& keys) {
    std::vector<std::string> parts;
    std::istringstream in(keys);
    for (std::string part; std::getline(in, part, '+');)
        parts.push_back(part);
    return parts;
}

} // namespace

RealInput::RealInput()
    : display(XOpenDisplay(nullptr), [](Display* opened) {
        if (opened != nullptr)
            XCloseDisplay(opened);
    }) {}

bool RealInput::focusWindow() const {
    Window root{};
    Window parent{};
    Window* children = nullptr;
    unsigned int count = 0;
    XQueryTree(display.get(), DefaultRootWindow(display.get()), &root, &parent, &children, &count);
    Window largest{};
    int widest = 0;
    for (unsigned int i = 0; i < count; ++i) {
        XWindowAttributes window{};
        XGetWindowAttributes(display.get(), children[i], &window);
        if (window.map_state == IsViewable && window.width > widest) {
            widest = window.width;
            largest = children[i];
        }
    }
    XFree(children);
    if (largest != Window{})
        XSetInputFocus(display.get(), largest, RevertToParent, CurrentTime);
    XSync(display.get(), False);
    return largest != Window{};
}

void RealInput::send(const std::string& key, bool isDown) const {
    const KeySym symbol = XStringToKeysym(xName(key).c_str());
    const KeyCode code = XKeysymToKeycode(display.get(), symbol);
    if (code == 0)
        throw std::runtime_error("no key " + key);
    XTestFakeKeyEvent(display.get(), code, isDown ? True : False, CurrentTime);
    XSync(display.get(), False);
    std::this_thread::sleep_for(kBetweenKeys);
}

void RealInput::press(const std::string& key) const {
    send(key, true);
}

void RealInput::release(const std::string& key) const {
    send(key, false);
}

void RealInput::click(const std::string& keys) const {
    const auto parts = partsOf(keys);
    for (const auto& part : parts)
        press(part);
    for (auto part = parts.rbegin(); part != parts.rend(); ++part)
        release(*part);
}

void RealInput::type(const std::string& text) const {
    for (const char letter : text) {
        const bool isUpper = std::isupper(static_cast<unsigned char>(letter)) != 0;
        const std::string key = letter == ' '   ? "space"
                                : letter == '.' ? "period"
                                                : std::string(1, letter);
        click(isUpper ? "shift+" + key : key);
    }
}

void RealInput::clickAt(int x, int y) const {
    constexpr int kPrimaryScreen = -1;
    XTestFakeMotionEvent(display.get(), kPrimaryScreen, x, y, CurrentTime);
    XSync(display.get(), False);
    std::this_thread::sleep_for(kBetweenKeys);
    for (const int isDown : {True, False}) {
        XTestFakeButtonEvent(display.get(), Button1, isDown, CurrentTime);
        XSync(display.get(), False);
        std::this_thread::sleep_for(kBetweenKeys);
    }
}

} // namespace zelvo::test
