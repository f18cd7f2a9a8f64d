// SPDX-License-Identifier: MIT
#pragma once

#include <QObject>

#include <optional>

namespace zelvo::ui {

/// The system's idle timer, which dims and locks the screen after some time without input. It
/// should not do so while a performance is watched. Uses the desktop's D-Bus interface
/// `org.freedesktop.ScreenSaver`; without that it does nothing.
class IdleTimer final : public QObject {
public:
    IdleTimer();
    ~IdleTimer() override;
    IdleTimer(const IdleTimer&) = delete;
    IdleTimer& operator=(const IdleTimer&) = delete;

    /// While disabled, the screen stays on; at most as long as this object lives.
    void setDisabled(bool isDisabled);

private:
    void inhibit();
    void uninhibit();

    bool wantsDisabled = false;
    bool isAsking = false;
    std::optional<unsigned> cookie; ///< of the current inhibition
};

} // namespace zelvo::ui
