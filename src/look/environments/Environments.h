// SPDX-License-Identifier: MIT
#pragma once

#include "look/environments/SNE.h"

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

} // namespace zelvo::look
