// SPDX-License-Identifier: MIT
#pragma once

#include "environments/SNE.h"

#include <array>

// The environments. Each is a constructor that builds its stage and a rule for the user's colour.

namespace zelvo::look {

/// Nothing but a white ambient light in front of the colour.
class SNE_Flat final : public SNE {
public:
    explicit SNE_Flat(foundation::RunLoop& loop);
    void setBackground(const image::Color& color) override;
};

/// A plain stage in front of the colour, lit by a grey horizon.
class SNE_Plain final : public SNE {
public:
    explicit SNE_Plain(foundation::RunLoop& loop);
    void setBackground(const image::Color& color) override;
};

/// No stage at all: a picture around, tinted in the colour, and a bright room to be reflected.
class SNE_Shiny final : public SNE {
public:
    explicit SNE_Shiny(foundation::RunLoop& loop);
    void setBackground(const image::Color& color) override;
};

/// A stage in the dark; one lamp takes the colour.
class SNE_Stage final : public SNE {
public:
    explicit SNE_Stage(foundation::RunLoop& loop);
    void setBackground(const image::Color& color) override;

private:
    scene::SCNNodePtr omniLight;
};

/// Clouds over still water, tinted in the colour, and dust in the air.
class SNE_Spherical final : public SNE {
public:
    explicit SNE_Spherical(foundation::RunLoop& loop);
    void setBackground(const image::Color& color) override;
};

/// A hall of columns in the night; its lamps take the colour.
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

/// A showroom whose back wall is drawn with light in the colour.
class SNE_Backlight final : public SNE {
public:
    explicit SNE_Backlight(foundation::RunLoop& loop);
    void setBackground(const image::Color& color) override;

private:
    image::ImagePtr filler; ///< of five walls; never null
    image::ImagePtr image;  ///< of the wall ahead; never null
    scene::SCNNodePtr shadowLight;
    scene::SCNNodePtr light3;
    scene::SCNNodePtr light4;
    scene::SCNNodePtr light5;
};

/// Far out; stars and gas take the colour.
class SNE_SpaceBox final : public SNE {
public:
    explicit SNE_SpaceBox(foundation::RunLoop& loop);
    void setBackground(const image::Color& color) override;

private:
    image::ImagePtr blackImage; ///< above and below; never null
    scene::SCNNodePtr light1;
};

/// A jeweller's dark room; four spots on the content spread the colour over neighbouring hues.
class SNE_Brilliance final : public SNE {
public:
    explicit SNE_Brilliance(foundation::RunLoop& loop);
    void setBackground(const image::Color& color) override;

private:
    std::array<scene::SCNNodePtr, 4> spotLightNodes; ///< spotLight1 to spotLight4
};

/// A quiet studio; one lamp washes its wall in the colour.
class SNE_Subtle final : public SNE {
public:
    explicit SNE_Subtle(foundation::RunLoop& loop);
    void setBackground(const image::Color& color) override;

private:
    scene::SCNNodePtr colorLight;
};

/// Bare lamps in front of a dark wall, in the colour and in another one across from it.
class SNE_Flares final : public SNE {
public:
    explicit SNE_Flares(foundation::RunLoop& loop);
    void setBackground(const image::Color& color) override;

private:
    scene::SCNNodePtr omniLight1;
    scene::SCNNodePtr omniLight2;
    scene::SCNNodePtr omniLight3;
    scene::SCNNodePtr omniLight4;
    scene::SCNNodePtr floor; ///< hidden under white light; absent until the scene has one to hide
};

} // namespace zelvo::look
