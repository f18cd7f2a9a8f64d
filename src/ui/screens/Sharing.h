// SPDX-License-Identifier: MIT
#pragma once

#include <QString>
#include <QUrl>

#include <functional>

namespace zelvo::ui {

/// Ways to pass on a finished movie on a desktop. Tests use their own.
struct Sharing {
    std::function<bool(const QUrl&)>
        open; ///< with the system's program for it; false: none took it
    std::function<void(const QString&)> copyText;
    std::function<void()> requestReview; ///< empty: there is no shop for reviews

    /// The user's desktop and clipboard.
    [[nodiscard]] static Sharing desktop();
};

} // namespace zelvo::ui
