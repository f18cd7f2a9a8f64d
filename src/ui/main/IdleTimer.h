// SPDX-License-Identifier: MIT
#pragma once

#include <QObject>

#include <optional>

namespace zelvo::ui {

/// The system's own: after a while without a touch it dims the screen and locks it, which ends a
/// performance that is being watched. Asked for over the session bus by the desktop's common
/// interface `org.freedesktop.ScreenSaver`; where there is none nothing happens.
class IdleTimer final : public QObject {
public:
    IdleTimer();
    ~IdleTimer() override;
    IdleTimer(const IdleTimer&) = delete;
    IdleTimer& operator=(const IdleTimer&) = delete;

    /// The screen stays on as long as it is disabled, at the longest as long as this lives.
    void setDisabled(bool isDisabled);

private:
    void inhibit();
    void uninhibit();

    bool wantsDisabled = false;
    bool isAsking = false;
    std::optional<unsigned> cookie; ///< of the inhibition in force
};

} // namespace zelvo::ui
