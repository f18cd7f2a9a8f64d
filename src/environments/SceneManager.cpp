// SPDX-License-Identifier: MIT
#include "environments/SceneManager.h"

#include "environments/Environments.h"

namespace zelvo::look {
namespace {

using Factory = SNEPtr (*)(foundation::RunLoop&);

template <class Environment> SNEPtr make(foundation::RunLoop& runLoop) {
    return std::make_shared<Environment>(runLoop);
}

// In the order of sceneNames.
constexpr std::array<Factory, SceneManager::sceneNames.size()> kFactories = {
    &make<SNE_Flat>,
    &make<SNE_Plain>,
    &make<SNE_Shiny>,
    &make<SNE_Spherical>,
    &make<SNE_Ancient>,
    &make<SNE_Backlight>,
    &make<SNE_Stage>,
    &make<SNE_SpaceBox>,
    &make<SNE_Brilliance>,
    &make<SNE_Subtle>,
    &make<SNE_Flares>,
};

} // namespace

SNEPtr SceneManager::sceneData(int index, foundation::RunLoop& runLoop) {
    if (index < 0 || index >= static_cast<int>(kFactories.size()))
        return nullptr;
    return kFactories[static_cast<std::size_t>(index)](runLoop);
}

} // namespace zelvo::look
