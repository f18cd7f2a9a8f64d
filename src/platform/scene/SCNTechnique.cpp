// SPDX-License-Identifier: MIT
#include "platform/scene/SCNTechnique.h"

#include <fmt/format.h>

#include <algorithm>
#include <array>
#include <map>
#include <string_view>

namespace zelvo::scene {
namespace {

using foundation::Cause;
using foundation::fail;
using foundation::Result;
using Kind = PropertyValue::Kind;

constexpr std::size_t kMaxPasses = 16;
constexpr std::size_t kMaxTargets = 8;
constexpr std::size_t kMaxSymbols = 16;
constexpr double kMinScale = 1.0 / 64;

/// A fragment function and its uniforms.
struct FunctionRow {
    std::string_view name;
    std::array<std::string_view, 3> uniforms{};
};

// clang-format off
constexpr auto kFunctions = std::to_array<FunctionRow>({
    {"invertFragmentShader",     {}                                    },
    {"exposureFragmentShader",   {}                                    },
    {"colorShiftFragmentShader", {}                                    },
    {"glitchFragmentShader",     {}                                    },
    {"waveFragmentShader",       {"amplitude", "wavelength", "speed"}  },
    {"shrinkFragmentShader",     {}                                    },
    {"growFragmentShader",       {}                                    },
    {"repeatFragmentShader",     {}                                    },
    {"gaussFragmentShader",      {"radius", "directionX", "directionY"}},
});

// clang-format on

std::string quoted(std::string_view key) {
    return fmt::format("\"{}\"", key);
}

class Builder {
public:
    explicit Builder(const PropertyValue& given)
        : description(given) {}

    [[nodiscard]] Result<SCNTechniquePtr> build() {
        if (auto done = readSymbols(); !done)
            return tl::unexpected(done.error());
        if (auto done = readTargets(); !done)
            return tl::unexpected(done.error());
        if (auto done = readSequence(); !done)
            return tl::unexpected(done.error());
        return std::make_shared<SCNTechnique>(std::move(technique));
    }

private:
    [[nodiscard]] static Result<const PropertyValue*>
    child(const PropertyValue& parent, std::string_view key, Kind kind) {
        const PropertyValue* found = parent.find(key);
        if (found == nullptr)
            return fail(Cause::malformed, quoted(key) + " is missing");
        if (found->kind != kind)
            return fail(Cause::malformed, quoted(key) + " is of the wrong kind");
        return found;
    }

    [[nodiscard]] static Result<void>
    expect(const PropertyValue& parent, std::string_view key, std::string_view wanted) {
        const auto found = child(parent, key, Kind::string);
        if (!found)
            return tl::unexpected(found.error());
        if ((*found)->text != wanted)
            return fail(Cause::unsupported, fmt::format("{} must be \"{}\"", quoted(key), wanted));
        return {};
    }

    [[nodiscard]] Result<void> readSymbols() {
        const auto list = child(description, "symbols", Kind::dictionary);
        if (!list)
            return tl::unexpected(list.error());
        if ((*list)->values.size() > kMaxSymbols)
            return fail(Cause::tooLarge, "\"symbols\" holds too many");
        for (const auto& [name, symbol] : (*list)->values) {
            const auto value = child(symbol, "value", Kind::number);
            if (!value)
                return tl::unexpected(value.error().in(name));
            symbols[name] = static_cast<float>((*value)->number);
        }
        return {};
    }

    [[nodiscard]] Result<void> readTargets() {
        if (description.find("targets") == nullptr)
            return {};
        const auto list = child(description, "targets", Kind::dictionary);
        if (!list)
            return tl::unexpected(list.error());
        if ((*list)->values.size() > kMaxTargets)
            return fail(Cause::tooLarge, "\"targets\" holds too many");
        for (const auto& [name, target] : (*list)->values) {
            const auto scale = child(target, "scaleFactor", Kind::number);
            if (!scale)
                return tl::unexpected(scale.error().in(name));
            if ((*scale)->number < kMinScale || (*scale)->number > 1)
                return fail(
                    Cause::malformed,
                    fmt::format("{}: \"scaleFactor\" must be from {} to 1", name, kMinScale));
            targets[name] = static_cast<int>(technique.targets.size());
            technique.targets.push_back((*scale)->number);
        }
        return {};
    }

    [[nodiscard]] Result<void> readSequence() {
        const auto passes = child(description, "passes", Kind::dictionary);
        if (!passes)
            return tl::unexpected(passes.error());
        const auto sequence = child(description, "sequence", Kind::array);
        if (!sequence)
            return tl::unexpected(sequence.error());
        const std::size_t count = (*sequence)->values.size();
        if (count == 0 || count > kMaxPasses)
            return fail(
                count == 0 ? Cause::malformed : Cause::tooLarge,
                fmt::format("\"sequence\" must name 1 to {} passes", kMaxPasses));
        for (const auto& [key, name] : (*sequence)->values) {
            if (name.kind != Kind::string)
                return fail(Cause::malformed, "\"sequence\" must hold names of passes");
            const auto pass = child(**passes, name.text, Kind::dictionary);
            if (!pass)
                return tl::unexpected(pass.error().in("passes"));
            if (auto done = readPass(**pass); !done)
                return tl::unexpected(done.error().in(name.text));
        }
        return {};
    }

    [[nodiscard]] Result<void> readPass(const PropertyValue& value) {
        if (auto done = expect(value, "draw", "DRAW_QUAD"); !done)
            return done;
        if (auto done = expect(value, "metalVertexShader", "simpleVertexShader"); !done)
            return done;
        const auto function = child(value, "metalFragmentShader", Kind::string);
        const auto inputs = child(value, "inputs", Kind::dictionary);
        const auto outputs = child(value, "outputs", Kind::dictionary);
        for (const auto* part : {&function, &inputs, &outputs}) {
            if (!*part)
                return tl::unexpected(part->error());
        }
        const auto* const row =
            std::ranges::find(kFunctions, (*function)->text, &FunctionRow::name);
        if (row == kFunctions.end())
            return fail(
                Cause::unsupported,
                fmt::format("\"metalFragmentShader\": no function {}", (*function)->text));
        const auto input = surface(**inputs, "colorSampler");
        if (!input)
            return tl::unexpected(input.error());
        const auto output = surface(**outputs, "color");
        if (!output)
            return tl::unexpected(output.error());
        if (*input == *output && *input != SCNTechnique::kColor)
            return fail(Cause::malformed, "the pass reads the target that it writes");
        SCNTechnique::Pass pass{(*function)->text, *input, *output};
        for (const std::string_view uniform : row->uniforms) {
            if (uniform.empty())
                continue;
            const auto symbol = child(**inputs, uniform, Kind::string);
            if (!symbol)
                return tl::unexpected(symbol.error());
            const auto found = symbols.find((*symbol)->text);
            if (found == symbols.end())
                return fail(Cause::malformed, fmt::format("no symbol {}", (*symbol)->text));
            pass.uniforms.push_back({std::string(uniform), found->second});
        }
        technique.passes.push_back(std::move(pass));
        return {};
    }

    [[nodiscard]] Result<int> surface(const PropertyValue& parent, std::string_view key) const {
        const auto name = child(parent, key, Kind::string);
        if (!name)
            return tl::unexpected(name.error());
        if ((*name)->text == "COLOR")
            return SCNTechnique::kColor;
        const auto found = targets.find((*name)->text);
        if (found == targets.end())
            return fail(
                Cause::malformed, fmt::format("{}: no target {}", quoted(key), (*name)->text));
        return found->second;
    }

    const PropertyValue& description;
    SCNTechnique technique;
    std::map<std::string, float> symbols;
    std::map<std::string, int> targets;
};

} // namespace

Result<SCNTechniquePtr> SCNTechnique::techniqueWithDictionary(const PropertyValue& description) {
    return Builder(description).build();
}

std::vector<int> SCNTechnique::placesFor(std::span<const double> wanted) {
    std::vector<int> places;
    for (const double scale : wanted) {
        int place = 0;
        const auto isAnothers = [&] {
            return targets[static_cast<std::size_t>(place)] != scale ||
                   std::ranges::find(places, place) != places.end();
        };
        const int count = static_cast<int>(targets.size());
        while (place < count && isAnothers())
            ++place;
        if (place == count)
            targets.push_back(scale);
        places.push_back(place);
    }
    return places;
}

SCNTechniquePtr
SCNTechnique::techniqueBySequencingTechniques(std::span<const SCNTechniquePtr> techniques) {
    if (techniques.empty())
        return nullptr;
    auto all = std::make_shared<SCNTechnique>();
    for (const SCNTechniquePtr& technique : techniques) {
        const std::vector<int> places = all->placesFor(technique->targets);
        const auto placed = [&](int index) {
            return index == kColor ? kColor : places[static_cast<std::size_t>(index)];
        };
        for (Pass pass : technique->passes) {
            pass.input = placed(pass.input);
            pass.output = placed(pass.output);
            all->passes.push_back(std::move(pass));
        }
    }
    return all;
}

} // namespace zelvo::scene
