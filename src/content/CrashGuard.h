// SPDX-License-Identifier: MIT
#pragma once

#include "node/Surroundings.h"

#include <string>
#include <vector>

namespace zelvo::content {

/// Protects against fonts that crash the process while letters are built, which cannot be caught as
/// an error. During a build, a mark is kept in the user defaults. If the process crashes, the mark
/// remains and the next build finds it.
///
///     CrashGuard guard(surroundings, fontName);   // looks for an old mark, then writes one
///     ... build, without a chamfer if guard.isFontCorrupt() ...
///                                                 // the guard's destructor removes the mark
///
/// A font found in this way stays in a list and is not guarded again. The user is told once.
///
/// There is one mark for all windows of the program. While another window builds letters, its mark
/// is left alone, and this build has none. The same is true for a build during another one of this
/// process. Main thread only.
class CrashGuard {
public:
    CrashGuard(const node::Surroundings& world, const std::string& fontName);
    ~CrashGuard();
    CrashGuard(const CrashGuard&) = delete;
    CrashGuard& operator=(const CrashGuard&) = delete;

    [[nodiscard]] bool isFontCorrupt() const { return isListed; }

    /// Removes the mark without a build.
    static void removeMark(const node::Surroundings& world);

    /// The names of the fonts that crashed the process.
    [[nodiscard]] static std::vector<std::string>
    corruptFonts(const foundation::UserDefaults& defaults);

private:
    const node::Surroundings& surroundings;
    bool isListed = false;
    bool hasMark = false;
};

} // namespace zelvo::content
