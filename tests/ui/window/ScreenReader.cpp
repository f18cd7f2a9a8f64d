// SPDX-License-Identifier: MIT
#include "ui/window/ScreenReader.h"

#include <atspi/atspi.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <chrono>
#include <thread>

namespace zelvo::test {

namespace {

using Item = std::shared_ptr<AtspiAccessible>;

constexpr auto kPatience = std::chrono::seconds(30);
constexpr auto kPause = std::chrono::milliseconds(100);
constexpr int kAnswerMilliseconds = 20'000;
constexpr int kDeepest = 40;
constexpr const char* kProgram = "zelvo";

[[nodiscard]] Item owned(AtspiAccessible* item) {
    return {item, [](AtspiAccessible* given) {
                if (given != nullptr)
                    g_object_unref(given);
            }};
}

[[nodiscard]] std::string taken(gchar* text) {
    std::string copy = text == nullptr ? "" : text;
    g_free(text);
    return copy;
}

[[nodiscard]] std::vector<std::string> statesOf(AtspiAccessible* item) {
    std::vector<std::string> names;
    AtspiStateSet* const set = atspi_accessible_get_state_set(item);
    if (set == nullptr)
        return names;
    GArray* const states = atspi_state_set_get_states(set);
    auto* const kinds = static_cast<GEnumClass*>(g_type_class_ref(ATSPI_TYPE_STATE_TYPE));
    for (guint i = 0; i < states->len; ++i) {
        const auto* const kind = g_enum_get_value(kinds, g_array_index(states, AtspiStateType, i));
        if (kind != nullptr)
            names.emplace_back(kind->value_nick);
    }
    g_type_class_unref(kinds);
    g_array_free(states, TRUE);
    g_object_unref(set);
    return names;
}

void readActions(AtspiAccessible* item, Heard& heard) {
    AtspiAction* const actions = atspi_accessible_get_action_iface(item);
    if (actions == nullptr)
        return;
    const int count = atspi_action_get_n_actions(actions, nullptr);
    for (int i = 0; i < count; ++i) {
        heard.actions.push_back(taken(atspi_action_get_action_name(actions, i, nullptr)));
        const std::string key = taken(atspi_action_get_key_binding(actions, i, nullptr));
        if (!key.empty())
            heard.key = key;
    }
    g_object_unref(actions);
}

/// Each answer takes a turn of the bus, so all is asked only where it is needed.
[[nodiscard]] Heard heardOf(const Item& item) {
    Heard heard;
    heard.item = item;
    heard.states = statesOf(item.get());
    heard.role = taken(atspi_accessible_get_role_name(item.get(), nullptr));
    heard.name = taken(atspi_accessible_get_name(item.get(), nullptr));
    return heard;
}

void complete(Heard& heard) {
    heard.description = taken(atspi_accessible_get_description(heard.item.get(), nullptr));
    readActions(heard.item.get(), heard);
}

/// Calls `visit` for everything that is shown, parents first, until it returns true.
template <class Visit> bool walk(const Item& item, int depth, const Visit& visit) {
    Heard heard = heardOf(item);
    if (!heard.is("showing") || depth > kDeepest)
        return false;
    if (visit(heard))
        return true;
    const int count = atspi_accessible_get_child_count(item.get(), nullptr);
    for (int i = 0; i < count; ++i) {
        const Item child = owned(atspi_accessible_get_child_at_index(item.get(), i, nullptr));
        if (child && walk(child, depth + 1, visit))
            return true;
    }
    return false;
}

[[nodiscard]] Item program() {
    const Item desktop = owned(atspi_get_desktop(0));
    atspi_accessible_set_cache_mask(desktop.get(), ATSPI_CACHE_NONE);
    const int count = atspi_accessible_get_child_count(desktop.get(), nullptr);
    for (int i = 0; i < count; ++i) {
        const Item child = owned(atspi_accessible_get_child_at_index(desktop.get(), i, nullptr));
        if (child && taken(atspi_accessible_get_name(child.get(), nullptr)) == kProgram)
            return child;
    }
    return nullptr;
}

template <class Condition> [[nodiscard]] bool soon(const Condition& happens) {
    const auto end = std::chrono::steady_clock::now() + kPatience;
    while (!happens()) {
        if (std::chrono::steady_clock::now() > end)
            return false;
        std::this_thread::sleep_for(kPause);
    }
    return true;
}

[[nodiscard]] bool contains(const std::vector<std::string>& all, const std::string& one) {
    return std::ranges::find(all, one) != all.end();
}

} // namespace

bool Heard::is(const std::string& state) const {
    return contains(states, state);
}

bool Heard::can(const std::string& action) const {
    return contains(actions, action);
}

std::string Heard::line() const {
    std::string text = "[" + role + "] '" + name + "'";
    if (!description.empty())
        text += " (" + description + ")";
    if (!key.empty())
        text += " key " + key;
    for (const auto* const list : {&actions, &states}) {
        text += list == &actions ? " does:" : " is:";
        for (const auto& word : *list)
            text += " " + word;
    }
    return text;
}

ScreenReader::ScreenReader() {
    atspi_init();
    atspi_set_timeout(kAnswerMilliseconds, kAnswerMilliseconds);
}

std::vector<Heard> ScreenReader::shown() const {
    std::vector<Heard> all;
    const auto take = [&all](Heard& heard) {
        complete(heard);
        all.push_back(heard);
        return false;
    };
    if (const Item item = program())
        walk(item, 0, take);
    return all;
}

std::optional<Heard> ScreenReader::find(const std::string& role, const std::string& name) const {
    std::optional<Heard> found;
    const auto take = [&](Heard& heard) {
        if (heard.role != role || heard.name != name)
            return false;
        complete(heard);
        found = heard;
        return true;
    };
    if (const Item item = program())
        walk(item, 0, take);
    return found;
}

std::optional<Heard> ScreenReader::await(const std::string& role, const std::string& name) const {
    std::optional<Heard> heard;
    const bool hasCome = soon([&] {
        heard = find(role, name);
        return heard && heard->is("enabled");
    });
    if (!hasCome)
        ADD_FAILURE() << "no enabled " << role << " '" << name << "' in\n" << tree();
    return hasCome ? heard : std::nullopt;
}

bool ScreenReader::awaitGone(const std::string& role, const std::string& name) const {
    return soon([&] { return !find(role, name); });
}

bool ScreenReader::act(
    const std::string& role, const std::string& name, const std::string& action) const {
    const auto heard = await(role, name);
    if (!heard)
        return false;
    AtspiAction* const actions = atspi_accessible_get_action_iface(heard->item.get());
    const auto place = std::ranges::find(heard->actions, action) - heard->actions.begin();
    const bool isDone = actions != nullptr && heard->can(action) &&
                        atspi_action_do_action(actions, static_cast<int>(place), nullptr) != FALSE;
    if (actions != nullptr)
        g_object_unref(actions);
    EXPECT_TRUE(isDone) << action << " of " << heard->line();
    return isDone;
}

bool ScreenReader::press(const std::string& role, const std::string& name) const {
    return act(role, name, "Press");
}

bool ScreenReader::write(
    const std::string& role, const std::string& name, const std::string& text) const {
    const auto heard = await(role, name);
    AtspiEditableText* const field =
        heard ? atspi_accessible_get_editable_text_iface(heard->item.get()) : nullptr;
    if (field == nullptr)
        return false;
    const bool isDone =
        atspi_editable_text_set_text_contents(field, text.c_str(), nullptr) != FALSE;
    g_object_unref(field);
    return isDone;
}

bool ScreenReader::setValue(const std::string& role, const std::string& name, double value) const {
    const auto heard = await(role, name);
    AtspiValue* const scale = heard ? atspi_accessible_get_value_iface(heard->item.get()) : nullptr;
    if (scale == nullptr)
        return false;
    const bool isDone = atspi_value_set_current_value(scale, value, nullptr) != FALSE;
    g_object_unref(scale);
    return isDone;
}

std::optional<double> ScreenReader::value(const Heard& heard) {
    AtspiValue* const scale = atspi_accessible_get_value_iface(heard.item.get());
    if (scale == nullptr)
        return std::nullopt;
    const double now = atspi_value_get_current_value(scale, nullptr);
    g_object_unref(scale);
    return now;
}

std::string ScreenReader::text(const Heard& heard) {
    AtspiText* const field = atspi_accessible_get_text_iface(heard.item.get());
    if (field == nullptr)
        return {};
    const int length = atspi_text_get_character_count(field, nullptr);
    std::string content = taken(atspi_text_get_text(field, 0, length, nullptr));
    g_object_unref(field);
    return content;
}

ScreenReader::Place ScreenReader::place(const Heard& heard) {
    AtspiComponent* const component = atspi_accessible_get_component_iface(heard.item.get());
    if (component == nullptr)
        return {};
    AtspiRect* const frame =
        atspi_component_get_extents(component, ATSPI_COORD_TYPE_SCREEN, nullptr);
    const Place middle = frame == nullptr
                             ? Place{}
                             : Place{frame->x + frame->width / 2, frame->y + frame->height / 2};
    g_free(frame);
    g_object_unref(component);
    return middle;
}

std::string ScreenReader::tree() const {
    std::string text;
    for (const Heard& heard : shown())
        text += heard.line() + "\n";
    return text.empty() ? "(no program)" : text;
}

} // namespace zelvo::test
