// SPDX-License-Identifier: MIT
#pragma once

#include <tl/expected.hpp>

#include <string>
#include <string_view>
#include <utility>

namespace zelvo::foundation {

/// Why something that a user can cause did not work. A closed list: callers decide by it, people
/// read the message.
enum class Cause {
    notFound,    ///< no such file, font, name
    unreadable,  ///< there, but it cannot be opened or read
    malformed,   ///< read, but not what its format allows
    tooLarge,    ///< over one of our limits on bytes, depth, count or ratio
    unsupported, ///< well formed, but nothing we handle
    unwritable,  ///< the target cannot be made or written (denied, full disk)
    unavailable, ///< the machine lacks a service (graphics, encoder, sound device)
    cancelled,   ///< the user stopped it; not a failure
};

/// A failure with its path of contexts. The message is one sentence that says what to do where
/// something can be done.
struct Error {
    Cause cause = Cause::malformed;
    std::string message;

    /// The same error with the enclosing element put before the message: "song.mp3: not a sound
    /// file".
    [[nodiscard]] Error in(std::string_view context) const {
        return {cause, std::string(context) + ": " + message};
    }
};

template <class T> using Result = tl::expected<T, Error>;

[[nodiscard]] inline tl::unexpected<Error> fail(Cause cause, std::string message) {
    return tl::unexpected<Error>(Error{cause, std::move(message)});
}

} // namespace zelvo::foundation
