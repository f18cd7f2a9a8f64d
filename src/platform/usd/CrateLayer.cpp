// SPDX-License-Identifier: MIT
#include "platform/usd/CrateLayer.h"

#include "platform/usd/CrateTables.h"
#include "platform/usd/CrateValues.h"

#include <functional>
#include <string_view>
#include <unordered_map>

namespace zelvo::usd {

using foundation::Cause;
using foundation::fail;
using foundation::Result;

namespace {

/// The values of a layer with the tables that they need.
struct CrateStore : ValueStore {
    CrateStore(
        std::span<const std::uint8_t> bytes, CrateTables source, std::shared_ptr<Budget> budget)
        : tables(std::move(source))
        , values(bytes, tables, std::move(budget)) {}

    [[nodiscard]] Value decode(std::uint64_t stored) const override {
        return values.decode(stored);
    }

    CrateTables tables;
    CrateValues values;
};

/// Takes the value if it is of this kind.
template <class T> void take(const Value& value, T& target) {
    if (const T* held = std::get_if<T>(&value))
        target = *held;
}

/// Some lists are stored without a way of editing.
void takeList(const Value& value, ListOp<std::string>& target) {
    if (const auto* plain = std::get_if<StringList>(&value)) {
        target = ListOp<std::string>::exactly(*plain);
    } else {
        take(value, target);
    }
}

std::optional<double> numberIn(const Value& value) {
    const auto* numbers = std::get_if<Numbers>(&value);
    return numbers != nullptr && !numbers->empty() ? std::optional(numbers->front()) : std::nullopt;
}

Specifier specifierOf(double number) {
    if (number == 0)
        return Specifier::def;
    return number == 1 ? Specifier::over : Specifier::abstract;
}

void setLayerField(Layer& layer, std::string_view name, const Value& value) {
    if (name == "defaultPrim") {
        take(value, layer.defaultPrim);
    } else if (name == "upAxis") {
        take(value, layer.upAxis);
    } else if (name == "metersPerUnit") {
        layer.metersPerUnit = numberIn(value);
    } else if (name == "subLayers") {
        take(value, layer.subLayers);
    }
}

using PrimSetter = void (*)(PrimSpec&, const Value&);

PrimSetter primSetterOf(std::string_view name) {
    static const std::unordered_map<std::string_view, PrimSetter> kSetters{
        {"specifier",
         [](PrimSpec& prim, const Value& value) {
             prim.specifier = specifierOf(numberIn(value).value_or(1));
         }},
        {"typeName", [](PrimSpec& prim, const Value& value) { take(value, prim.typeName); }},
        {"active",
         [](PrimSpec& prim, const Value& value) {
             prim.isActive = numberIn(value).value_or(1) != 0;
         }},
        {"references", [](PrimSpec& prim, const Value& value) { take(value, prim.references); }},
        {"payload", [](PrimSpec& prim, const Value& value) { take(value, prim.payloads); }},
        {"inheritPaths",
         [](PrimSpec& prim, const Value& value) { takeList(value, prim.inherits); }},
        {"specializes",
         [](PrimSpec& prim, const Value& value) { takeList(value, prim.specializes); }},
        {"variantSetNames",
         [](PrimSpec& prim, const Value& value) { takeList(value, prim.variantSetNames); }},
        {"variantSelection",
         [](PrimSpec& prim, const Value& value) { take(value, prim.variantSelections); }},
    };
    const auto found = kSetters.find(name);
    return found == kSetters.end() ? nullptr : found->second;
}

/// Makes the layer of the tables. Objects whose parents are missing are made with them.
class LayerMaker {
public:
    LayerMaker(Layer& target, const CrateStore& source)
        : layer(target)
        , store(source)
        , tables(source.tables)
        , prims(tables.paths.size()) {}

    Result<void> make();

private:
    /// The prim or variant at a path; null if the path is not of that kind.
    PrimSpec* primAt(std::uint32_t path);
    PrimSpec* childAt(const CratePath& path, PrimSpec& parent);
    void setPrim(const CrateSpec& spec);
    void setProperty(const CrateSpec& spec);
    void setPropertyField(PropertySpec& property, std::string_view name, std::uint64_t value);

    using Visit = std::function<void(const std::string& name, std::uint64_t value)>;
    void visitFields(const CrateSpec& spec, const Visit& visit);

    Layer& layer;
    const CrateStore& store;
    const CrateTables& tables;
    std::vector<PrimSpec*> prims;                         ///< by path; null if not made yet
    std::vector<std::pair<PrimSpec*, StringList>> orders; ///< of the children of prims
    std::size_t fieldsLeft = 1U << 25U; ///< objects may share fields, so these count more than once
};

void LayerMaker::visitFields(const CrateSpec& spec, const Visit& visit) {
    for (std::size_t at = spec.fieldSet; at < tables.fieldSets.size(); ++at) {
        if (tables.fieldSets[at] == CrateTables::kEndOfFieldSet)
            break;
        if (fieldsLeft == 0)
            return;
        --fieldsLeft;
        const CrateField& field = tables.fields[tables.fieldSets[at]];
        visit(tables.tokens[field.name], field.value);
    }
}

PrimSpec* LayerMaker::primAt(std::uint32_t path) {
    std::vector<std::uint32_t> missing;
    std::uint32_t at = path;
    while (prims[at] == nullptr) {
        const CratePath& entry = tables.paths[at];
        if (!entry.isFilled || entry.isProperty)
            return nullptr;
        if (entry.parent == CratePath::kNone)
            prims[at] = &layer.root;
        else {
            missing.push_back(at);
            at = entry.parent;
        }
    }
    PrimSpec* prim = prims[at];
    for (auto next = missing.rbegin(); next != missing.rend(); ++next) {
        prim = childAt(tables.paths[*next], *prim);
        if (prim == nullptr)
            return nullptr;
        prims[*next] = prim;
    }
    return prim;
}

PrimSpec* LayerMaker::childAt(const CratePath& path, PrimSpec& parent) {
    const std::string& element = tables.tokens[path.element];
    if (!element.starts_with('{'))
        return &parent.children.at(element);
    // {set=selection}; the set itself has no selection and is no prim.
    const std::size_t equals = element.find('=');
    if (equals == std::string::npos || equals + 2 >= element.size() || element.back() != '}')
        return nullptr;
    VariantSet& set = parent.variantSets.at(element.substr(1, equals - 1));
    return &set.variants.at(element.substr(equals + 1, element.size() - equals - 2));
}

void LayerMaker::setPrim(const CrateSpec& spec) {
    PrimSpec* prim = primAt(spec.path);
    if (prim == nullptr)
        return;
    const bool isRoot = spec.type == CrateSpecType::pseudoRoot;
    visitFields(spec, [&](const std::string& name, std::uint64_t value) {
        if (name == "primChildren") {
            take(store.decode(value), orders.emplace_back(prim, StringList()).second);
        } else if (isRoot) {
            setLayerField(layer, name, store.decode(value));
        } else if (const PrimSetter set = primSetterOf(name)) {
            set(*prim, store.decode(value));
        }
    });
}

void LayerMaker::setPropertyField(
    PropertySpec& property, std::string_view name, std::uint64_t value) {
    if (name == "default") {
        const bool isBlocked = CrateValues::isBlocked(value);
        property.value = isBlocked ? Opinion{std::make_shared<Value>(Blocked{}), nullptr, 0}
                                   : Opinion{nullptr, &store, value};
    } else if (name == "timeSamples") {
        if (const auto sample = store.values.firstSample(value))
            property.firstSample = {nullptr, &store, *sample};
    } else if (name == "targetPaths" || name == "connectionPaths") {
        takeList(store.decode(value), property.targets);
    } else if (name == "interpolation") {
        take(store.decode(value), property.interpolation);
    } else if (name == "bindMaterialAs") {
        take(store.decode(value), property.bindMaterialAs);
    }
}

void LayerMaker::setProperty(const CrateSpec& spec) {
    const CratePath& path = tables.paths[spec.path];
    if (!path.isFilled || !path.isProperty || path.parent == CratePath::kNone)
        return;
    PrimSpec* prim = primAt(path.parent);
    if (prim == nullptr)
        return;
    PropertySpec& property = prim->properties.at(tables.tokens[path.element]);
    visitFields(spec, [&](const std::string& name, std::uint64_t value) {
        setPropertyField(property, name, value);
    });
}

Result<void> LayerMaker::make() {
    for (const CrateSpec& spec : tables.specs) {
        switch (spec.type) {
        case CrateSpecType::pseudoRoot:
        case CrateSpecType::prim:
        case CrateSpecType::variant:
            setPrim(spec);
            break;
        case CrateSpecType::attribute:
        case CrateSpecType::relationship:
            setProperty(spec);
            break;
        default:
            break;
        }
    }
    if (fieldsLeft == 0)
        return fail(Cause::tooLarge, "it has too many fields");
    for (const auto& [prim, order] : orders)
        prim->children.sort(order);
    return {};
}

} // namespace

Result<std::unique_ptr<Layer>>
readCrateLayer(std::span<const std::uint8_t> bytes, const std::shared_ptr<Budget>& budget) {
    auto tables = readCrateTables(bytes);
    if (!tables)
        return tl::unexpected(tables.error());
    auto store = std::make_unique<CrateStore>(bytes, *std::move(tables), budget);
    auto layer = std::make_unique<Layer>();
    if (const auto made = LayerMaker(*layer, *store).make(); !made)
        return tl::unexpected(made.error());
    layer->store = std::move(store);
    return layer;
}

} // namespace zelvo::usd
