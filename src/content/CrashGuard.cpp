// SPDX-License-Identifier: MIT
#include "content/CrashGuard.h"

#include "platform/foundation/ProcessMark.h"
#include "platform/foundation/RunLoop.h"
#include "platform/foundation/UserDefaults.h"

#include <fmt/format.h>

#include <algorithm>
#include <vector>

namespace zelvo::content {
namespace {

constexpr auto kListKey = "CorruptFontNames";
constexpr auto kMarkKey = "PotentialCorruptFontName";
constexpr auto kOwnerKey = "PotentialCorruptFontProcess"; ///< the process that wrote the mark
// Each step of a slider writes the mark, so it must be quick.
constexpr auto kMarkOutlives = foundation::UserDefaults::Outlives::program;

int buildsNow = 0; ///< in this process

bool holds(const std::vector<std::string>& names, const std::string& name) {
    return std::ranges::find(names, name) != names.end();
}

bool isOtherBuilding(const foundation::UserDefaults& defaults) {
    const auto owner = defaults.string(kOwnerKey);
    return defaults.string(kMarkKey) && owner && *owner != foundation::processMark() &&
           foundation::isRunning(*owner);
}

/// The owner is written once in a process, and stays there between builds.
void setMark(foundation::UserDefaults& defaults, const std::string& fontName) {
    if (const auto owner = foundation::processMark(); defaults.string(kOwnerKey) != owner)
        defaults.set(kOwnerKey, owner);
    defaults.set(kMarkKey, fontName, kMarkOutlives);
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
    defaults.refresh();
    std::vector<std::string> corrupt = corruptFonts(defaults);
    const bool isMarkAnothers = buildsNow++ > 0 || isOtherBuilding(defaults);
    if (const auto culprit = defaults.string(kMarkKey); culprit && !isMarkAnothers) {
        if (!holds(corrupt, *culprit)) {
            corrupt.push_back(*culprit);
            defaults.set(kListKey, corrupt);
            tellUser(surroundings, *culprit);
        }
        defaults.remove(kMarkKey, kMarkOutlives);
    }
    isListed = holds(corrupt, fontName);
    hasMark = !isListed && !isMarkAnothers;
    if (hasMark)
        setMark(defaults, fontName);
}

CrashGuard::~CrashGuard() {
    --buildsNow;
    if (hasMark)
        surroundings.defaults->remove(kMarkKey, kMarkOutlives);
}

std::vector<std::string> CrashGuard::corruptFonts(const foundation::UserDefaults& defaults) {
    return defaults.strings(kListKey).value_or(std::vector<std::string>{});
}

void CrashGuard::removeMark(const node::Surroundings& world) {
    if (buildsNow == 0)
        world.defaults->remove(kMarkKey, kMarkOutlives);
}

} // namespace zelvo::content
