// SPDX-License-Identifier: MIT
#pragma once

#include <tl/expected.hpp>

#include <string>
#include <string_view>
#include <utility>

namespace zelvo::foundation {

/// Why an operation failed that a user can cause to fail. Code decides by the cause; people read
/// the message.
enum class Cause {
    notFound,    ///< no such file, font, name
    unreadable,  ///< exists, but cannot be opened or read
    malformed,   ///< does not follow its format
    tooLarge,    ///< over a limit of bytes, depth, count or ratio
    unsupported, ///< correct, but not supported here
    unwritable,  ///< cannot be created or written (no permission, disk full)
    unavailable, ///< the machine lacks something (graphics, encoder, sound device)
    cancelled,   ///< stopped by the user; not a failure
};

/// An error with its context. The message is one sentence; if possible, it says what to do.
struct Error {
    Cause cause = Cause::malformed;
    std::string message;

    /// Adds a context in front of the message: "song.mp3: not a sound file".
    [[nodiscard]] Error in(std::string_view context) const {
        return {cause, std::string(context) + ": " + message};
    }
};

template <class T> using Result = tl::expected<T, Error>;

[[nodiscard]] inline tl::unexpected<Error> fail(Cause cause, std::string message) {
    return tl::unexpected<Error>(Error{cause, std::move(message)});
}

} // namespace zelvo::foundation
