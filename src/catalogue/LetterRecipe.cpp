// SPDX-License-Identifier: MIT
#include "catalogue/LetterRecipe.h"

namespace zelvo::catalogue {

using scene::SCNAction;

void staggerLetters(
    const Letters& letters, const Stagger& stagger, BeforeTurn before, const LetterMoves& moves) {
    double number = 0;
    for (const content::CharNodePtr& letter : letters) {
        std::vector<scene::SCNActionPtr> steps;
        if (before == BeforeTurn::faded)
            steps.push_back(SCNAction::fadeOut(0));
        steps.push_back(SCNAction::wait(number * stagger.perLetter + stagger.lead));
        // The letter owns this completion until it is called. A shared pointer in it would keep the
        // letter alive forever.
        const std::weak_ptr<content::CharNode> weak = letter;
        letter->runAction(
            SCNAction::sequence(std::move(steps)), [weak, moves, place = placeOf(*letter)] {
                if (const content::CharNodePtr there = weak.lock())
                    moves(*there, place);
            });
        ++number;
    }
}

void moveAfterWait(
    const std::vector<node::NodePtr>& nodes,
    const glm::vec3& from,
    const glm::vec3& to,
    double wait,
    const Pace& pace) {
    const auto move = SCNAction::sequence({moveTo(from), SCNAction::wait(wait), moveTo(to, pace)});
    for (const node::NodePtr& node : nodes) {
        node->runAction(move);
    }
}

} // namespace zelvo::catalogue
