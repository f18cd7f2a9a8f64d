// SPDX-License-Identifier: MIT
#pragma once

#include "document/Performance.h"
#include "platform/image/Image.h"
#include "ui/controls/Services.h"

#include <cstddef>
#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace zelvo::ui {

/// Undo and redo of styling. A step is the whole style before a gesture of the hand, so nothing has to
/// say what it changes: the owner calls `note` when the hand lets go, and what differs by then is one
/// step. Letters typed one after the other are one step up to the next blank or pause.
class StyleHistory {
public:
    static constexpr std::size_t kMostSteps = 500;
    static constexpr double kPause = 1.5; ///< seconds; typing after it is another step

    explicit StyleHistory(const Services& given);

    std::function<void()> didChange; ///< what can be undone has changed; may be empty
    std::function<void()> didApply;  ///< the stage has another style; may be empty

    /// Takes what has changed since the last call as one step.
    void note();
    /// The stage shows another document: nothing of before can be undone.
    void forget();

    [[nodiscard]] bool canUndo() const { return !past.empty(); }

    [[nodiscard]] bool canRedo() const { return !future.empty(); }

    void undo();
    void redo();

private:
    /// A style, and its picture as long as somebody has it: large ones would fill the memory. It comes
    /// back from its file otherwise.
    struct Moment {
        document::Style style;
        std::weak_ptr<const image::Image> picture;
    };

    [[nodiscard]] Moment look() const;
    [[nodiscard]] bool goesOnTyping(const Moment& next) const;
    void step(std::vector<Moment>& from, std::vector<Moment>& to);
    void apply(const Moment& moment);
    void tell() const;

    Services services;
    std::vector<Moment> past;
    std::vector<Moment> future;
    Moment now;
    bool isTyping = false; ///< the newest step is one of typing
    double typedAt = 0;    ///< time of the run loop
};

} // namespace zelvo::ui
