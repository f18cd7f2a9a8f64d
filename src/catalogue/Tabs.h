// SPDX-License-Identifier: MIT
#pragma once

#include "catalogue/Catalogue.h"

#include <algorithm>
#include <array>

// The tabs of the catalogue. Each has a function that makes its buttons, in a source file of its
// own, and a row in the table below.

namespace zelvo::catalogue {

[[nodiscard]] std::vector<Button> showCam();
[[nodiscard]] std::vector<Button> showFlyBy();
[[nodiscard]] std::vector<Button> showFX1();
[[nodiscard]] std::vector<Button> showFX2();
[[nodiscard]] std::vector<Button> showFX3();
[[nodiscard]] std::vector<Button> showIn1();
[[nodiscard]] std::vector<Button> showIn2();
[[nodiscard]] std::vector<Button> showIn3();
[[nodiscard]] std::vector<Button> showIn4();
[[nodiscard]] std::vector<Button> showOut1();
[[nodiscard]] std::vector<Button> showOut2();
[[nodiscard]] std::vector<Button> showOut3();
[[nodiscard]] std::vector<Button> showRot();
[[nodiscard]] std::vector<Button> showTXT();

/// In the order of the row. The tab with the field MID shows "TXT".
// clang-format off
inline constexpr auto kTabs = std::to_array<Tab>({
    {"FLY", "FLY", Group::in,       "fly-throughs",                             showFlyBy, {1, 4}},
    {"IN1", "IN1", Group::in,       "straight entrances",                       showIn1,   {1, 5}},
    {"IN2", "IN2", Group::in,       "mixed entrances",                          showIn2,   {1, 6}},
    {"IN3", "IN3", Group::in,       "letter and random entrances",              showIn3,   {1, 7}},
    {"IN4", "IN4", Group::in,       "eased and letter entrances",               showIn4,   {1, 8}},
    {"TXT", "MID", Group::letters,  "letter actions for the middle of a movie", showTXT,   {2, 1}},
    {"ROT", "ROT", Group::turns,    "rotations of the whole stage",             showRot,   {2, 2}},
    {"CAM", "CAM", Group::camera,   "camera actions",                           showCam,   {2, 3}},
    {"FX1", "FX1", Group::effects,  "post-processing and hide",                 showFX1,   {2, 4}},
    {"FX2", "FX2", Group::effects,  "explosions with light",                    showFX2,   {2, 5}},
    {"FX3", "FX3", Group::effects,  "particle and light effects",               showFX3,   {2, 6}},
    {"OT1", "OT1", Group::out,      "straight exits",                           showOut1,  {1, 1}},
    {"OT2", "OT2", Group::out,      "eased and letter exits",                   showOut2,  {1, 2}},
    {"OT3", "OT3", Group::out,      "mixed exits",                              showOut3,  {1, 3}},
});

// clang-format on

static_assert(
    std::ranges::is_sorted(kTabs, {}, &Tab::group), "the tabs of a group stand side by side");

/// The number of tabs in this place: 1 if the table is right.
[[nodiscard]] constexpr auto tabsAt(const PagePlace& wanted) {
    return std::ranges::count_if(kTabs, [&](const Tab& tab) {
        return tab.onPage.page == wanted.page && tab.onPage.place == wanted.place;
    });
}

static_assert(
    std::ranges::all_of(
        kTabs,
        [](const Tab& tab) {
            const auto [page, place] = tab.onPage;
            return (page == 1 || page == 2) && tabsAt(tab.onPage) == 1 &&
                   (place == 1 || tabsAt({page, place - 1}) == 1);
        }),
    "the places of a page are 1, 2, 3 and so on, with one tab in each");

} // namespace zelvo::catalogue
