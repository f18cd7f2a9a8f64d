// SPDX-License-Identifier: MIT
#pragma once

#include "platform/usd/CrateTables.h"

#include <lz4.h>

#include <algorithm>
#include <cstdint>
#include <cstring>
#include <string>
#include <utility>
#include <vector>

namespace zelvo::test {

/// Writes small binary layers, with plain sections before 0.4.0 and packed ones from there on.
class CrateWriter {
public:
    explicit CrateWriter(usd::CrateVersion wanted)
        : version(wanted)
        , data(kHeaderBytes, '\0') {
        token(";-)"); // a packed path cannot use the first token for a property
    }

    template <class T> static std::string raw(const T& value) {
        std::string bytes(sizeof(T), '\0');
        std::memcpy(bytes.data(), &value, sizeof(T));
        return bytes;
    }

    template <class T> static std::string rawAll(const std::vector<T>& values) {
        std::string bytes;
        for (const T& value : values)
            bytes += raw(value);
        return bytes;
    }

    std::uint32_t token(const std::string& text) {
        const auto found = std::ranges::find(tokens, text);
        if (found == tokens.end())
            return tokens.push_back(text), static_cast<std::uint32_t>(tokens.size() - 1);
        return static_cast<std::uint32_t>(found - tokens.begin());
    }

    std::uint32_t string(const std::string& text) {
        strings.push_back(token(text));
        return static_cast<std::uint32_t>(strings.size() - 1);
    }

    /// A child of a path, in the order of the tree: all below a path before its next sibling.
    std::uint32_t path(std::uint32_t parent, const std::string& element, bool isProperty = false) {
        paths.push_back({parent, token(element), isProperty});
        return static_cast<std::uint32_t>(paths.size() - 1);
    }

    using Fields = std::vector<std::pair<std::string, std::uint64_t>>;

    void spec(std::uint32_t at, usd::CrateSpecType type, const Fields& own) {
        specs.push_back({at, static_cast<std::uint32_t>(fieldSets.size()), type});
        for (const auto& [name, value] : own) {
            fieldSets.push_back(static_cast<std::uint32_t>(fields.size()));
            fields.push_back({token(name), value});
        }
        fieldSets.push_back(usd::CrateTables::kEndOfFieldSet);
    }

    static std::uint64_t inlined(unsigned type, std::uint32_t bits) {
        return std::uint64_t{1} << 62U | std::uint64_t{type} << 48U | bits;
    }

    /// A value at an offset: its bytes are written now.
    std::uint64_t stored(unsigned type, const std::string& bytes) {
        const std::uint64_t at = data.size();
        data += bytes;
        return std::uint64_t{type} << 48U | at;
    }

    std::uint64_t array(unsigned type, std::uint64_t count, const std::string& elements) {
        std::string bytes;
        if (version < usd::CrateVersion{0, 5, 0})
            bytes += raw(std::uint32_t{1});
        bytes += version < usd::CrateVersion{0, 7, 0} ? raw(static_cast<std::uint32_t>(count))
                                                      : raw(count);
        return std::uint64_t{1} << 63U | stored(type, bytes + elements);
    }

    /// The same with packed elements.
    std::uint64_t packedArray(unsigned type, std::uint64_t count, const std::string& packed) {
        return std::uint64_t{1} << 61U | array(type, count, packed);
    }

    [[nodiscard]] static std::string packedInts(const std::vector<std::int32_t>& values) {
        std::string codes((values.size() + 3) / 4, '\0');
        std::string differences;
        constexpr std::int32_t kCommon = 1;
        std::int32_t last = 0;
        for (std::size_t i = 0; i < values.size(); ++i) {
            const auto difference = static_cast<std::int32_t>( // wraps
                static_cast<std::uint32_t>(values[i]) -
                static_cast<std::uint32_t>(std::exchange(last, values[i])));
            unsigned code = 3;
            if (difference == kCommon) {
                code = 0;
            } else if (difference == static_cast<std::int8_t>(difference)) {
                code = 1, differences += raw(static_cast<std::int8_t>(difference));
            } else if (difference == static_cast<std::int16_t>(difference)) {
                code = 2, differences += raw(static_cast<std::int16_t>(difference));
            } else {
                differences += raw(difference);
            }
            codes[i / 4] =
                static_cast<char>(static_cast<unsigned char>(codes[i / 4]) | code << i % 4 * 2);
        }
        const std::string block = packedBlock(raw(kCommon) + codes + differences);
        return raw(std::uint64_t{block.size()}) + block;
    }

    [[nodiscard]] static std::string packedBlock(const std::string& bytes) {
        std::string packed(
            static_cast<std::size_t>(LZ4_compressBound(static_cast<int>(bytes.size()))), '\0');
        const int size = LZ4_compress_default(
            bytes.data(),
            packed.data(),
            static_cast<int>(bytes.size()),
            static_cast<int>(packed.size()));
        return '\0' + packed.substr(0, static_cast<std::size_t>(size));
    }

    [[nodiscard]] std::string bytes() {
        std::string contents;
        const bool isPacked = version >= usd::CrateVersion{0, 4, 0};
        std::string whole;
        for (const std::string& text : tokens)
            whole += text + '\0';
        section(
            contents,
            "TOKENS",
            raw(std::uint64_t{tokens.size()}) + raw(std::uint64_t{whole.size()}) +
                (isPacked ? sized(packedBlock(whole)) : whole));
        section(contents, "STRINGS", raw(std::uint64_t{strings.size()}) + rawAll(strings));
        section(contents, "FIELDS", isPacked ? packedFields() : plainFields());
        section(
            contents,
            "FIELDSETS",
            raw(std::uint64_t{fieldSets.size()}) +
                (isPacked ? packedInts(signedOf(fieldSets)) : rawAll(fieldSets)));
        section(contents, "PATHS", isPacked ? packedPaths() : plainPaths());
        section(contents, "SPECS", isPacked ? packedSpecs() : plainSpecs());
        std::string head =
            "PXR-USDC" + raw(version) + std::string(5, '\0') + raw(std::uint64_t{data.size()});
        std::ranges::copy(head, data.begin());
        return data + raw(std::uint64_t{6}) + contents;
    }

private:
    static constexpr std::size_t kHeaderBytes = 88;

    struct Path {
        std::uint32_t parent;
        std::uint32_t element;
        bool isProperty;
    };

    static std::string sized(const std::string& block) {
        return raw(std::uint64_t{block.size()}) + block;
    }

    static std::vector<std::int32_t> signedOf(const std::vector<std::uint32_t>& values) {
        return {values.begin(), values.end()};
    }

    void section(std::string& contents, std::string name, const std::string& bytes) {
        name.resize(16);
        contents += name + raw(std::uint64_t{data.size()}) + raw(std::uint64_t{bytes.size()});
        data += bytes;
    }

    std::string plainFields() const {
        std::string bytes = raw(std::uint64_t{fields.size()});
        for (const usd::CrateField& field : fields)
            bytes += raw(std::uint32_t{0}) + raw(field.name) + raw(field.value);
        return bytes;
    }

    std::string packedFields() const {
        std::vector<std::int32_t> names;
        std::string values;
        for (const usd::CrateField& field : fields) {
            names.push_back(static_cast<std::int32_t>(field.name));
            values += raw(field.value);
        }
        return raw(std::uint64_t{fields.size()}) + packedInts(names) + sized(packedBlock(values));
    }

    bool hasChild(std::size_t at) const {
        return at + 1 < paths.size() && paths[at + 1].parent == at;
    }

    /// 0 if there is none.
    std::size_t siblingOf(std::size_t at) const {
        for (std::size_t i = at + 1; i < paths.size(); ++i) {
            if (paths[i].parent == paths[at].parent)
                return i;
        }
        return 0;
    }

    std::string packedPaths() const {
        std::vector<std::int32_t> indices, elements, jumps;
        for (std::size_t i = 0; i < paths.size(); ++i) {
            const auto element = static_cast<std::int32_t>(paths[i].element);
            const auto step = static_cast<std::int32_t>(siblingOf(i) - i);
            indices.push_back(static_cast<std::int32_t>(i));
            elements.push_back(paths[i].isProperty ? -element : element);
            if (siblingOf(i) == 0) {
                jumps.push_back(hasChild(i) ? -1 : -2);
            } else {
                jumps.push_back(hasChild(i) ? step : 0);
            }
        }
        const auto count = raw(std::uint64_t{paths.size()});
        return count + count + packedInts(indices) + packedInts(elements) + packedInts(jumps);
    }

    /// A record with both a child and a sibling is 8 bytes longer than the others.
    std::string plainPaths() const {
        std::vector<std::uint64_t> places;
        std::uint64_t at = data.size() + 8;
        for (std::size_t i = 0; i < paths.size(); ++i) {
            places.push_back(at);
            at += hasChild(i) && siblingOf(i) != 0 ? 20U : 12U;
        }
        std::string bytes = raw(std::uint64_t{paths.size()});
        for (std::size_t i = 0; i < paths.size(); ++i) {
            const std::size_t sibling = siblingOf(i);
            const std::uint32_t bits = (hasChild(i) ? 1U : 0U) | (sibling != 0 ? 2U : 0U) |
                                       (paths[i].isProperty ? 4U : 0U);
            bytes += raw(static_cast<std::uint32_t>(i)) + raw(paths[i].element) + raw(bits);
            if ((bits & 3U) == 3U)
                bytes += raw(places[sibling]);
        }
        return bytes;
    }

    std::string plainSpecs() const { return raw(std::uint64_t{specs.size()}) + rawAll(specs); }

    std::string packedSpecs() const {
        std::vector<std::int32_t> at, sets, types;
        for (const usd::CrateSpec& spec : specs) {
            at.push_back(static_cast<std::int32_t>(spec.path));
            sets.push_back(static_cast<std::int32_t>(spec.fieldSet));
            types.push_back(static_cast<std::int32_t>(spec.type));
        }
        return raw(std::uint64_t{specs.size()}) + packedInts(at) + packedInts(sets) +
               packedInts(types);
    }

    usd::CrateVersion version;
    std::string data;
    std::vector<std::string> tokens;
    std::vector<std::uint32_t> strings;
    std::vector<usd::CrateField> fields;
    std::vector<std::uint32_t> fieldSets;
    std::vector<Path> paths;
    std::vector<usd::CrateSpec> specs;
};

} // namespace zelvo::test
