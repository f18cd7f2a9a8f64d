// SPDX-License-Identifier: MIT
#include "environments/SceneManager.h"

namespace zelvo::environments {

SNEPtr SceneManager::sceneData(int index, foundation::RunLoop& runLoop) {
    if (index < 0 || index >= static_cast<int>(kEnvironments.size()))
        return nullptr;
    return kEnvironments[static_cast<std::size_t>(index)].make(runLoop);
}

} // namespace zelvo::environments
