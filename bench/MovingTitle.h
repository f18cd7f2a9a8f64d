// SPDX-License-Identifier: MIT
#pragma once

#include "app/Export.h"
#include "document/EngineNames.h"
#include "document/Performer.h"
#include "document/SetUp.h"
#include "environments/SceneManager.h"
#include "platform/foundation/Check.h"
#include "platform/foundation/TemporaryFolder.h"

#include <fmt/format.h>

#include <filesystem>

namespace zelvo::bench {

/// From here to the end, all letters are in view and each of them moves in each frame.
inline constexpr double kMovesFrom = 1.6; // seconds

inline constexpr auto kTitle =
    R"({{"duration": 2, "speed": "slower", "scene": "{}", "background": "#194CE6", "nodes": {{
    "TX1": {{"text": "MIDNIGHT", "font": "Audiowide-Regular", "material": "Iron", "depth": 26,
             "bevel": 2.0, "profile": "rounded", "fill": "outer", "frontColor": "#FFFFFF",
             "position": [0, 44, 0], "scale": 1.1}},
    "TX2": {{"text": "EXPRESS", "font": "Audiowide-Regular", "material": "Plain", "depth": 24,
             "bevel": 1.8, "profile": "rounded", "fill": "outer", "frontColor": "#E6B219",
             "position": [0, -44, 0]}}}},
    "cues": [{{"at": 0.3, "tab": "IN1", "press": "Left In", "nodes": ["TX1"]}},
             {{"at": 0.3, "tab": "IN1", "press": "Right In", "nodes": ["TX2"]}}]}})";

inline foundation::TemporaryFolder temporaryFolder() {
    auto made = foundation::TemporaryFolder::make(std::filesystem::temp_directory_path());
    CHECK(made.has_value(), "{}", made.error().message);
    return std::move(*made);
}

/// A recorded title in one of the environments. It flies in until the end.
class Title {
public:
    explicit Title(int scene)
        : folder(temporaryFolder())
        , engine(loop.runLoop(), foundation::Folders::below(folder.path()), 0) {
        const auto& name =
            environments::SceneManager::sceneNames.at(static_cast<std::size_t>(scene));
        const auto title =
            document::readPerformance(fmt::format(kTitle, name), document::engineNames());
        CHECK(title.has_value(), "{}", title.error().front().text);
        CHECK(document::setUp(*title, {}, engine.model()).has_value(), "no music is asked for");
        document::perform(*title, engine.model());
    }

    foundation::TemporaryFolder folder;
    app::StoppableLoop loop;
    app::Engine engine;
};

} // namespace zelvo::bench
