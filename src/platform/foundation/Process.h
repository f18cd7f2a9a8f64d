// SPDX-License-Identifier: MIT
#pragma once

#include <string_view>

namespace zelvo::foundation {

/// Call it first in main: keeps messages of libraries off the console; if memory runs out, the
/// process ends with one line and status 1.
void prepareProcess();

/// Ends the process with one line and status 1, because one of the program's own files is missing
/// or damaged: "zelvo: StageScene.scn is missing; …".
[[noreturn]] void endWithoutResource(std::string_view what);

} // namespace zelvo::foundation
