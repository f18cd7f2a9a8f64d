// SPDX-License-Identifier: MIT
#include "ui/document/StyleHistory.h"

#include "document/SetUp.h"
#include "document/StageReading.h"
#include "model/Model.h"
#include "platform/foundation/RunLoop.h"

#include <utility>

namespace zelvo::ui {

namespace {

using document::Style;
using document::TextStyle;

/// The text node whose text, and nothing else, differs; empty if there is none.
std::string typedNode(const Style& before, const Style& after) {
    Style same = before;
    std::string found;
    for (auto& [name, text] : same.nodes) {
        const auto other = after.nodes.find(name);
        if (other == after.nodes.end() || other->second.text == text.text)
            continue;
        if (!found.empty())
            return {};
        found = name;
        text.text = other->second.text;
    }
    return same == after ? found : std::string();
}

/// Whether the text has grown by a blank: the next letter begins a word.
bool endsWord(const std::string& before, const std::string& after) {
    return after.size() == before.size() + 1 && after.starts_with(before) && after.back() == ' ';
}

} // namespace

StyleHistory::StyleHistory(const Services& given)
    : services(given)
    , now(look()) {}

StyleHistory::Moment StyleHistory::look() const {
    return {document::styleOf(services.model), services.model.nodes().imageNode->image()};
}

void StyleHistory::note() {
    Moment next = look();
    if (next.style == now.style)
        return;
    const std::string node = typedNode(now.style, next.style);
    const bool goesOn = !node.empty() && goesOnTyping(next);
    if (!goesOn) {
        past.push_back(now);
        if (past.size() > kMostSteps)
            past.erase(past.begin());
    }
    isTyping =
        !node.empty() && !endsWord(*now.style.nodes.at(node).text, *next.style.nodes.at(node).text);
    typedAt = services.runLoop.now();
    now = std::move(next);
    future.clear();
    tell();
}

bool StyleHistory::goesOnTyping(const Moment& next) const {
    return isTyping && !past.empty() && services.runLoop.now() - typedAt < kPause &&
           !typedNode(past.back().style, next.style).empty();
}

void StyleHistory::forget() {
    past.clear();
    future.clear();
    now = look();
    isTyping = false;
    tell();
}

void StyleHistory::undo() {
    note(); // what the hand has not let go yet
    step(past, future);
}

void StyleHistory::redo() {
    note();
    step(future, past);
}

void StyleHistory::step(std::vector<Moment>& from, std::vector<Moment>& to) {
    if (from.empty())
        return;
    to.push_back(now);
    const Moment wanted = std::move(from.back());
    from.pop_back();
    apply(wanted);
    now = look();
    isTyping = false;
    tell();
    if (didApply)
        didApply();
}

void StyleHistory::apply(const Moment& moment) {
    // Only what is not on the stage is read again, and no picture that is still known.
    Style read = moment.style;
    const image::ImagePtr known = moment.picture.lock();
    const bool isVideo = read.picture->image && media::isVideoFile(*read.picture->image);
    if (read.picture->image == now.style.picture->image || (known && !isVideo))
        read.picture->image.reset();
    if (read.object->object == now.style.object->object &&
        (read.object->material || !now.style.object->material))
        read.object->object.reset();
    document::StageMedia media = document::readMedia(read);
    if (known && !isVideo)
        media.picture = known;
    (void)document::applyStyle(moment.style, std::move(media), services.model);
}

void StyleHistory::tell() const {
    if (didChange)
        didChange();
}

} // namespace zelvo::ui
