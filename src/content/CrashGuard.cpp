// SPDX-License-Identifier: MIT
#include "content/CrashGuard.h"

#include "platform/foundation/RunLoop.h"
#include "platform/foundation/UserDefaults.h"

#include <fmt/format.h>

#include <algorithm>
#include <vector>

namespace zelvo::content {
namespace {

constexpr auto kListKey = "CorruptFontNames";
constexpr auto kMarkKey = "PotentialCorruptFontName";

bool holds(const std::vector<std::string>& names, const std::string& name) {
    return std::ranges::find(names, name) != names.end();
}

void tellUser(const node::Surroundings& surroundings, const std::string& fontName) {
    if (!surroundings.showAlert)
        return;
    surroundings.runLoop->post([show = surroundings.showAlert, fontName] {
        show(
            fontName + " Crashed",
            fmt::format(
                "Font '{}', or some characters of it, caused a crash in combination with a bevel "
                "setted higher than 0. Bevel will be set to 0 when loading this font.",
                fontName));
    });
}

} // namespace

CrashGuard::CrashGuard(const node::Surroundings& world, const std::string& fontName)
    : surroundings(world) {
    foundation::UserDefaults& defaults = *surroundings.defaults;
    std::vector<std::string> corrupt =
        defaults.strings(kListKey).value_or(std::vector<std::string>{});
    if (const auto culprit = defaults.string(kMarkKey)) {
        if (!holds(corrupt, *culprit)) {
            corrupt.push_back(*culprit);
            defaults.set(kListKey, corrupt);
            tellUser(surroundings, *culprit);
        }
        defaults.remove(kMarkKey);
    }
    isListed = holds(corrupt, fontName);
    if (!isListed)
        defaults.set(kMarkKey, fontName);
}

CrashGuard::~CrashGuard() {
    removeMark(surroundings);
}

void CrashGuard::removeMark(const node::Surroundings& world) {
    world.defaults->remove(kMarkKey);
}

} // namespace zelvo::content
