// SPDX-License-Identifier: MIT
#pragma once

#include <string_view>

namespace zelvo::foundation {

/// What a program does first: what libraries say of their own stays off the console, and where
/// memory runs out the process ends with one line and status 1.
void prepareProcess();

/// Ends the process with one line and status 1, as a file that belongs to the program is missing or
/// damaged: "zelvo: StageScene.scn is missing; …".
[[noreturn]] void endWithoutResource(std::string_view what);

} // namespace zelvo::foundation
