// SPDX-License-Identifier: MIT
#pragma once

#include "environments/SNE.h"

#include <array>
#include <string_view>

// The environments. Each class builds its stage and has a rule for the user's colour. To add one,
// add a class and a row in the table at the end; no other code changes.

namespace zelvo::environments {

/// Only a white ambient light; the background is the colour.
class SNE_Flat final : public SNE {
public:
    explicit SNE_Flat(foundation::RunLoop& loop);
    void setBackground(const image::Color& color) override;
};

/// A plain stage in front of the colour, lit by a grey horizon and by the floor.
class SNE_Plain final : public SNE {
public:
    explicit SNE_Plain(foundation::RunLoop& loop);
    void setBackground(const image::Color& color) override;
};

/// A panorama tinted in the colour, a floor that is only seen by its mirror images, and a bright room
/// for reflections.
class SNE_Shiny final : public SNE {
public:
    explicit SNE_Shiny(foundation::RunLoop& loop);
    void setBackground(const image::Color& color) override;
};

/// A dark stage; one lamp has the colour.
class SNE_Stage final : public SNE {
public:
    explicit SNE_Stage(foundation::RunLoop& loop);
    void setBackground(const image::Color& color) override;

private:
    scene::SCNNodePtr omniLight;
};

/// Clouds over still water, tinted in the colour, with dust in the air.
class SNE_Spherical final : public SNE {
public:
    explicit SNE_Spherical(foundation::RunLoop& loop);
    void setBackground(const image::Color& color) override;
};

/// Ruins of a hall of columns at dusk; its lamps have the colour.
class SNE_Ancient final : public SNE {
public:
    explicit SNE_Ancient(foundation::RunLoop& loop);
    void setBackground(const image::Color& color) override;

private:
    scene::SCNNodePtr shadowLight;
    scene::SCNNodePtr light3;
    scene::SCNNodePtr light4;
    scene::SCNNodePtr light5;
    scene::SCNNodePtr plane;
};

/// A showroom; its back wall is drawn with lines of light in the colour.
class SNE_Backlight final : public SNE {
public:
    explicit SNE_Backlight(foundation::RunLoop& loop);
    void setBackground(const image::Color& color) override;

private:
    image::ImagePtr filler; ///< for five walls; never null
    image::ImagePtr image;  ///< for the wall ahead; never null
    scene::SCNNodePtr shadowLight;
    scene::SCNNodePtr light3;
    scene::SCNNodePtr light4;
    scene::SCNNodePtr light5;
};

/// Outer space; stars and gas have the colour.
class SNE_SpaceBox final : public SNE {
public:
    explicit SNE_SpaceBox(foundation::RunLoop& loop);
    void setBackground(const image::Color& color) override;

private:
    image::ImagePtr blackImage; ///< above and below; never null
    scene::SCNNodePtr light1;
};

/// A jeweller's dark room; four spots on the content have hues near the colour.
class SNE_Brilliance final : public SNE {
public:
    explicit SNE_Brilliance(foundation::RunLoop& loop);
    void setBackground(const image::Color& color) override;

private:
    std::array<scene::SCNNodePtr, 4> spotLightNodes; ///< spotLight1 to spotLight4
};

/// A quiet studio; one lamp lights its wall in the colour.
class SNE_Subtle final : public SNE {
public:
    explicit SNE_Subtle(foundation::RunLoop& loop);
    void setBackground(const image::Color& color) override;

private:
    scene::SCNNodePtr colorLight;
};

/// Bare lamps in front of a dark wall, in the colour and in a contrasting one.
class SNE_Flares final : public SNE {
public:
    explicit SNE_Flares(foundation::RunLoop& loop);
    void setBackground(const image::Color& color) override;

private:
    scene::SCNNodePtr omniLight1;
    scene::SCNNodePtr omniLight2;
    scene::SCNNodePtr omniLight3;
    scene::SCNNodePtr omniLight4;
    scene::SCNNodePtr floor; ///< hidden under white light; null until the scene has one to hide
};

/// A title that fits an environment, for the sheet of all environments: a background colour, and
/// materials for two lines that look good in its light.
struct SampleTitle {
    std::uint32_t background;
    look::XMATClasses first;
    look::XMATClasses second;
    std::uint32_t accent; ///< colour of the second line
};

struct EnvironmentRow {
    std::string_view name;
    SNEPtr (*make)(foundation::RunLoop& loop);
    SampleTitle sample;
};

template <class Environment> [[nodiscard]] SNEPtr makeEnvironment(foundation::RunLoop& loop) {
    return std::make_shared<Environment>(loop);
}

/// In the user's order; the index makes an environment.
// clang-format off
inline constexpr auto kEnvironments = [] {
    using enum look::XMATClasses;
    return std::to_array<EnvironmentRow>({
        {"Flat",       makeEnvironment<SNE_Flat>,       {0x19B2E6, flat,     flat,     0xE6E619}},
        {"Plain",      makeEnvironment<SNE_Plain>,      {0xE6B219, plain,    plain,    0xE61919}},
        {"Shiny",      makeEnvironment<SNE_Shiny>,      {0x194CE6, iron,     plate,    0xFFC83C}},
        {"Spherical",  makeEnvironment<SNE_Spherical>,  {0xE67F19, iron,     grained,  0xFFB85C}},
        {"Ancient",    makeEnvironment<SNE_Ancient>,    {0xE6B219, rock,     grained,  0xFFD9A0}},
        {"Backlight",  makeEnvironment<SNE_Backlight>,  {0x19B2E6, iron,     plastic,  0xFF4C9F}},
        {"Stage",      makeEnvironment<SNE_Stage>,      {0xE61919, oldMetal, plain,    0xFFC83C}},
        {"SpaceBox",   makeEnvironment<SNE_SpaceBox>,   {0x194CE6, oldMetal, circuits, 0x9FE8FF}},
        {"Brilliance", makeEnvironment<SNE_Brilliance>, {0xE6197F, iron,     dynamic,  0xE619BF}},
        {"Subtle",     makeEnvironment<SNE_Subtle>,     {0x19E6E6, grained,  plate,    0xFFA64C}},
        {"Flares",     makeEnvironment<SNE_Flares>,     {0xE61919, plastic,  plate,    0xFFE680}},
    });
}();
// clang-format on

} // namespace zelvo::environments
