// SPDX-License-Identifier: MIT
#pragma once

#include "app/Engine.h"
#include "catalogue/Catalogue.h"
#include "platform/foundation/Lifetime.h"
#include "platform/foundation/Random.h"
#include "shared/Signal.h"
#include "support/TemporaryFolder.h"

#include <fmt/format.h>

#include <algorithm>
#include <functional>
#include <map>
#include <string>
#include <vector>

namespace zelvo::test {

/// A program of its own.
struct World {
    explicit World(std::uint64_t seed = 1)
        : engine(loop, foundation::Folders::below(folder.path()), seed) {}

    /// One run, in which a hand does something at times of the clock.
    void play(std::multimap<double, std::function<void()>> deeds) {
        const foundation::Lifetime listening;
        ui::signals().timeSignal.subscribe(listening, [&](const ui::TimeState& state) {
            while (model().isPlaying() && !deeds.empty() && deeds.begin()->first <= state.time)
                deeds.extract(deeds.begin()).mapped()();
        });
        model().start();
        (void)loop.runUntil([&] { return !model().isPlaying(); });
        loop.runFor(0.1);
    }

    void begin(const char* tab, const char* title, std::vector<node::NodePtr> nodes = {}) {
        const catalogue::Tab& row = *catalogue::tabNamed(tab);
        shown = row.buttons();
        const auto button = std::ranges::find(shown, title, &catalogue::Button::title);
        catalogue::press(row, *button, context(std::move(nodes)), foundation::arc4random());
        held = *button;
    }

    void end(std::vector<node::NodePtr> nodes = {}) {
        catalogue::release(held, context(std::move(nodes)));
    }

    [[nodiscard]] catalogue::PressContext context(std::vector<node::NodePtr> nodes) {
        return {
            model().actionController(),
            nodes.empty() ? stage().content() : std::move(nodes),
            model().animationFactor()};
    }

    [[nodiscard]] model::Model& model() { return engine.model(); }

    [[nodiscard]] stage::Nodes& stage() { return engine.stage(); }

    [[nodiscard]] actions::Gestures& fingers() { return model().actionController().gestures; }

    /// The records as text: all that decides when and how they are replayed.
    [[nodiscard]] std::vector<std::string> records() {
        auto kept = model().actionController().recordedActions();
        std::ranges::stable_sort(kept, {}, [](const auto& xac) { return xac->time; });
        std::vector<std::string> lines;
        std::map<int, std::size_t> groups; // identifiers differ, groups must not
        for (const auto& xac : kept) {
            const auto group = groups.try_emplace(xac->identifier, groups.size()).first->second;
            const bool isPress = std::holds_alternative<actions::ButtonPress>(*xac->origin);
            lines.push_back(fmt::format(
                "{:.4f} {} \"{}\" {} {}",
                xac->time,
                group,
                xac->title,
                xac->registerUndo,
                isPress ? xac->seed : 0));
        }
        return lines;
    }

    foundation::VirtualRunLoop loop;
    test::TemporaryFolder folder;
    app::Engine engine;
    std::vector<catalogue::Button> shown;
    catalogue::Button held;
};

} // namespace zelvo::test
