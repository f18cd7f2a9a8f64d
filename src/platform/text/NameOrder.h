// SPDX-License-Identifier: MIT
#pragma once

#include <string_view>

namespace zelvo::text {

/// Whether the first name comes before the second in a list for the user: by the rules of the
/// user's language, upper and lower case alike. Main thread only.
[[nodiscard]] bool comesBefore(std::string_view first, std::string_view second);

} // namespace zelvo::text
