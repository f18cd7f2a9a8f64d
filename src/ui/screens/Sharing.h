// SPDX-License-Identifier: MIT
#pragma once

#include <QString>
#include <QUrl>

#include <functional>

namespace zelvo::ui {

/// What a finished movie can be handed to on a desktop. A test hands in its own.
struct Sharing {
    std::function<bool(const QUrl&)>
        open; ///< with the system's program for it; false: none took it
    std::function<void(const QString&)> copyText;
    std::function<void()> requestReview; ///< empty: there is no shop that takes reviews

    /// The user's desktop and clipboard.
    [[nodiscard]] static Sharing desktop();
};

} // namespace zelvo::ui
