// SPDX-License-Identifier: MIT
#include "look/environments/SceneManager.h"

#include "look/environments/Environments.h"

namespace zelvo::look {
namespace {

using Factory = SNEPtr (*)(foundation::RunLoop&);

template <class Environment> SNEPtr make(foundation::RunLoop& runLoop) {
    return std::make_shared<Environment>(runLoop);
}

// In the order of sceneNames; null where an environment is still to be built.
constexpr std::array<Factory, SceneManager::sceneNames.size()> kFactories = {
    &make<SNE_Flat>,
    &make<SNE_Plain>,
    &make<SNE_Shiny>,
    nullptr, // Spherical
    nullptr, // Ancient
    nullptr, // Backlight
    &make<SNE_Stage>,
    nullptr, // SpaceBox
    nullptr, // Brilliance
    nullptr, // Subtle
    nullptr, // Flares
};

} // namespace

SNEPtr SceneManager::sceneData(int index, foundation::RunLoop& runLoop) {
    if (index < 0 || index >= static_cast<int>(kFactories.size()))
        return nullptr;
    const Factory factory = kFactories[static_cast<std::size_t>(index)];
    return factory == nullptr ? nullptr : factory(runLoop);
}

} // namespace zelvo::look
