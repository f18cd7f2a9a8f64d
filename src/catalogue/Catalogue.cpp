// SPDX-License-Identifier: MIT
#include "catalogue/Catalogue.h"

#include "catalogue/Tabs.h"

#include <algorithm>
#include <array>

namespace zelvo::catalogue {

namespace {

// The tab with the field MID shows "TXT".
// clang-format off
constexpr auto kTabs = std::to_array<Tab>({
    {"FLY", "FLY", "fly-throughs",                             showFlyBy, {1, 4}},
    {"IN1", "IN1", "straight entrances",                       showIn1,   {1, 5}},
    {"IN2", "IN2", "mixed entrances",                          showIn2,   {1, 6}},
    {"IN3", "IN3", "letter and random entrances",              showIn3,   {1, 7}},
    {"IN4", "IN4", "eased and letter entrances",               showIn4,   {1, 8}},
    {"TXT", "MID", "letter actions for the middle of a movie", showTXT,   {2, 1}},
    {"ROT", "ROT", "rotations of the whole stage",             showRot,   {2, 2}},
    {"CAM", "CAM", "camera actions",                           showCam,   {2, 3}},
    {"FX1", "FX1", "post-processing and hide",                 showFX1,   {2, 4}},
    {"FX2", "FX2", "explosions with light",                    showFX2,   {2, 5}},
    {"FX3", "FX3", "particle and light effects",               showFX3,   {2, 6}},
    {"OT1", "OT1", "straight exits",                           showOut1,  {1, 1}},
    {"OT2", "OT2", "eased and letter exits",                   showOut2,  {1, 2}},
    {"OT3", "OT3", "mixed exits",                              showOut3,  {1, 3}},
});
// clang-format on

} // namespace

std::span<const Tab> tabs() {
    return kTabs;
}

const Tab* tabNamed(std::string_view shortTitle) {
    const auto* const found = std::ranges::find(kTabs, shortTitle, &Tab::shortTitle);
    return found == kTabs.end() ? nullptr : &*found;
}

} // namespace zelvo::catalogue
