// SPDX-License-Identifier: MIT
#pragma once

#include "node/Surroundings.h"

#include <string>

namespace zelvo::content {

/// Survives a process that dies while a font's letters are built: no error can be caught from that.
/// A mark in the user defaults stands during a build, so that only a dead process leaves one
/// behind, and the next build finds it.
///
///     CrashGuard guard(surroundings, fontName);   // reads what an earlier process left, writes
///     the mark
///     ... build, without a chamfer if guard.isFontCorrupt() ...
///                                                 // the mark goes with the guard
///
/// A font that was found out stands in the list for good and is not guarded again; the user is told
/// once.
class CrashGuard {
public:
    CrashGuard(const core::Surroundings& world, const std::string& fontName);
    ~CrashGuard();
    CrashGuard(const CrashGuard&) = delete;
    CrashGuard& operator=(const CrashGuard&) = delete;

    [[nodiscard]] bool isFontCorrupt() const { return isListed; }

    /// Takes the mark away without a build.
    static void removeMark(const core::Surroundings& world);

private:
    const core::Surroundings& surroundings;
    bool isListed = false;
};

} // namespace zelvo::content
