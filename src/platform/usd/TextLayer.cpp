// SPDX-License-Identifier: MIT
#include "platform/usd/TextLayer.h"

#include "platform/usd/TextScanner.h"
#include "platform/usd/TextValues.h"

#include <array>
#include <utility>

namespace zelvo::usd {

using foundation::Cause;
using foundation::fail;
using foundation::Result;

namespace {

constexpr std::string_view kMagic = "#usda";

/// How a statement edits a list. Without a word in front it replaces the list.
enum class Edit { replace, prepend, append, add, remove, reorder };

struct EditWord {
    std::string_view word;
    Edit edit;
};

constexpr auto kEditWords = std::to_array<EditWord>(
    {{"prepend", Edit::prepend},
     {"append", Edit::append},
     {"add", Edit::add},
     {"delete", Edit::remove},
     {"reorder", Edit::reorder}});

template <class T> void editList(ListOp<T>& list, Edit edit, std::vector<T> items) {
    switch (edit) {
    case Edit::replace:
        list = ListOp<T>::exactly(std::move(items));
        break;
    case Edit::prepend:
        list.prepended = std::move(items);
        break;
    case Edit::append:
        list.appended = std::move(items);
        break;
    case Edit::add:
        list.added = std::move(items);
        break;
    case Edit::remove:
        list.deleted = std::move(items);
        break;
    case Edit::reorder:
        break; // the order of what is there changes nothing that is drawn
    }
}

/// Reads statement by statement. After a fault the scanner finds nothing more, so all loops end.
class LayerReader {
public:
    LayerReader(std::string_view text, Layer& target, Budget& limit)
        : scanner(text)
        , layer(target)
        , budget(limit) {}

    /// Empty, or what is wrong.
    [[nodiscard]] const std::string& read();

private:
    Edit edit();
    void layerMetadata();
    void primMetadata(PrimSpec& prim, const std::string& path);
    bool composition(PrimSpec& prim, const std::string& path, std::string_view key, Edit how);
    void variantSelections(PrimSpec& prim);
    bool tryPrim(PrimSpec& parent, const std::string& path, int depth);
    void body(PrimSpec& prim, const std::string& path, int depth);
    void variantSet(PrimSpec& prim, const std::string& path, int depth);
    void property(PrimSpec& prim, const std::string& path);
    void attributeValue(PropertySpec& attribute, std::string_view part, std::string_view type);
    void samples(PropertySpec& attribute, std::string_view type);
    void propertyMetadata(PropertySpec& property);

    /// Reads "( key = value … )". `entry` reads the value of a key, or returns false.
    template <class Entry> void metadata(Entry entry);

    TextScanner scanner;
    Layer& layer;
    Budget& budget;
};

Edit LayerReader::edit() {
    for (const EditWord& row : kEditWords) {
        if (scanner.acceptWord(row.word))
            return row.edit;
    }
    return Edit::replace;
}

template <class Entry> void LayerReader::metadata(Entry entry) {
    if (!scanner.accept('('))
        return;
    while (!scanner.isAtEndOf(')')) {
        if (scanner.isAtString()) {
            static_cast<void>(scanner.string()); // a remark
            continue;
        }
        const Edit how = edit();
        const std::string key(scanner.word());
        if (key.empty())
            scanner.fail("the name of a setting is missing");
        scanner.expect('=');
        if (!entry(key, how))
            skipTextValue(scanner);
        scanner.accept(',');
    }
    scanner.expect(')');
}

void LayerReader::layerMetadata() {
    metadata([this](std::string_view key, Edit) {
        if (key == "defaultPrim") {
            layer.defaultPrim = scanner.string();
        } else if (key == "upAxis") {
            layer.upAxis = scanner.string();
        } else if (key == "metersPerUnit") {
            layer.metersPerUnit = scanner.number();
        } else if (key == "subLayers") {
            layer.subLayers = readTextStrings(scanner);
        } else {
            return false;
        }
        return true;
    });
}

bool LayerReader::composition(
    PrimSpec& prim, const std::string& path, std::string_view key, Edit how) {
    if (key == "references") {
        editList(prim.references, how, readTextReferences(scanner));
    } else if (key == "payload") {
        editList(prim.payloads, how, readTextReferences(scanner));
    } else if (key == "inherits") {
        editList(prim.inherits, how, readTextPaths(scanner, path));
    } else if (key == "specializes") {
        editList(prim.specializes, how, readTextPaths(scanner, path));
    } else if (key == "variantSets") {
        editList(prim.variantSetNames, how, readTextStrings(scanner));
    } else {
        return false;
    }
    return true;
}

void LayerReader::primMetadata(PrimSpec& prim, const std::string& path) {
    metadata([&](std::string_view key, Edit how) {
        if (key == "active") {
            const auto value = readTextValue(scanner, "bool", budget);
            const auto* numbers = std::get_if<Numbers>(&value);
            prim.isActive = numbers == nullptr || numbers->empty() || numbers->front() != 0;
            return true;
        }
        if (key == "variants") {
            variantSelections(prim);
            return true;
        }
        return composition(prim, path, key, how);
    });
}

void LayerReader::variantSelections(PrimSpec& prim) {
    scanner.expect('{');
    while (!scanner.isAtEndOf('}')) {
        scanner.acceptWord("string");
        const std::string set =
            scanner.isAtString() ? scanner.string() : std::string(scanner.word());
        if (!scanner.expect('='))
            return;
        prim.variantSelections[set] = scanner.string();
        scanner.accept(',');
    }
    scanner.expect('}');
}

bool LayerReader::tryPrim(PrimSpec& parent, const std::string& path, int depth) {
    Specifier specifier = Specifier::def;
    if (scanner.acceptWord("over")) {
        specifier = Specifier::over;
    } else if (scanner.acceptWord("class")) {
        specifier = Specifier::abstract;
    } else if (!scanner.acceptWord("def")) {
        return false;
    }
    const std::string typeName(scanner.word());
    const std::string name = scanner.string();
    PrimSpec& prim = parent.children.at(name);
    prim.specifier = specifier;
    if (!typeName.empty())
        prim.typeName = typeName;
    const std::string own = path + "/" + name;
    primMetadata(prim, own);
    body(prim, own, depth + 1);
    return true;
}

void LayerReader::body(PrimSpec& prim, const std::string& path, int depth) {
    if (depth > kMaxDepth)
        scanner.fail("objects are nested too deeply");
    scanner.expect('{');
    while (!scanner.isAtEndOf('}')) {
        if (tryPrim(prim, path, depth))
            continue;
        if (scanner.acceptWord("variantSet")) {
            variantSet(prim, path, depth);
        } else {
            property(prim, path);
        }
    }
    scanner.expect('}');
}

void LayerReader::variantSet(PrimSpec& prim, const std::string& path, int depth) {
    VariantSet& set = prim.variantSets.at(scanner.string());
    scanner.expect('=');
    scanner.expect('{');
    while (!scanner.isAtEndOf('}')) {
        PrimSpec& variant = set.variants.at(scanner.string());
        primMetadata(variant, path);
        body(variant, path, depth + 1);
    }
    scanner.expect('}');
}

void LayerReader::property(PrimSpec& prim, const std::string& path) {
    const Edit how = edit();
    for (const std::string_view word : {"custom", "uniform", "varying"})
        scanner.acceptWord(word);
    std::string type(scanner.word());
    const bool isList = scanner.accept('[') && scanner.expect(']');
    if (isList)
        type += "[]";
    const std::string name(scanner.word());
    if (how == Edit::reorder) { // "nameChildren = [...]" or "properties = [...]"
        scanner.expect('=');
        skipTextValue(scanner);
        return;
    }
    if (type.empty() || name.empty()) {
        scanner.fail("an object or an attribute is missing");
        return;
    }
    PropertySpec& property = prim.properties.at(name);
    const std::string part(scanner.accept('.') ? scanner.word() : std::string_view());
    if (scanner.accept('=')) {
        if (type == "rel" || part == "connect") {
            editList(property.targets, how, readTextPaths(scanner, path));
        } else {
            attributeValue(property, part, type);
        }
    }
    propertyMetadata(property);
}

void LayerReader::attributeValue(
    PropertySpec& attribute, std::string_view part, std::string_view type) {
    if (part.empty()) {
        attribute.value.ready = std::make_shared<Value>(readTextValue(scanner, type, budget));
    } else if (part == "timeSamples") {
        samples(attribute, type);
    } else {
        skipTextValue(scanner);
    }
}

void LayerReader::samples(PropertySpec& attribute, std::string_view type) {
    scanner.expect('{');
    while (!scanner.isAtEndOf('}')) {
        if (!scanner.number())
            scanner.fail("the time of a value is missing");
        scanner.expect(':');
        if (attribute.firstSample.isAuthored()) {
            skipTextValue(scanner);
        } else {
            auto value = std::make_shared<Value>(readTextValue(scanner, type, budget));
            if (!std::holds_alternative<Blocked>(*value))
                attribute.firstSample.ready = std::move(value);
        }
        scanner.accept(',');
    }
    scanner.expect('}');
}

void LayerReader::propertyMetadata(PropertySpec& property) {
    metadata([&](std::string_view key, Edit) {
        if (key == "interpolation") {
            property.interpolation = scanner.string();
        } else if (key == "bindMaterialAs") {
            property.bindMaterialAs = scanner.string();
        } else {
            return false;
        }
        return true;
    });
}

const std::string& LayerReader::read() {
    layerMetadata();
    while (!scanner.isAtEndOf('\0')) {
        if (tryPrim(layer.root, "", 0))
            continue;
        if (!scanner.acceptWord("reorder")) {
            scanner.fail("an object is missing");
            break;
        }
        static_cast<void>(scanner.word()); // rootPrims
        scanner.expect('=');
        skipTextValue(scanner);
    }
    return scanner.message();
}

} // namespace

bool isTextLayer(std::string_view text) {
    return text.starts_with(kMagic);
}

Result<std::unique_ptr<Layer>>
readTextLayer(std::string_view text, const std::shared_ptr<Budget>& budget) {
    if (!isTextLayer(text))
        return fail(Cause::malformed, "it does not begin as a text layer");
    auto layer = std::make_unique<Layer>();
    const std::string fault = LayerReader(text, *layer, *budget).read();
    if (!fault.empty())
        return fail(Cause::malformed, fault);
    return layer;
}

} // namespace zelvo::usd
