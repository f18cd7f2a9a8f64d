// SPDX-License-Identifier: MIT
#include "platform/usd/CrateTables.h"

#include "platform/usd/ByteReader.h"
#include "platform/usd/CrateCompression.h"
#include "platform/usd/CratePaths.h"

#include <algorithm>
#include <array>
#include <map>
#include <string_view>

namespace zelvo::usd {

using foundation::Cause;
using foundation::fail;
using foundation::Result;

namespace {

constexpr std::string_view kMagic = "PXR-USDC";
constexpr std::uint64_t kTableOfContentsAt = 16;
constexpr std::uint64_t kMaxSections = 64;
// Of one table. A real file has at most some hundred thousand.
constexpr std::uint64_t kMaxRows = 1U << 24U;
constexpr std::uint64_t kMaxTokenBytes = 1U << 28U;
constexpr CrateVersion kPackedSections{0, 4, 0};
constexpr CrateVersion kUnpaddedSpecs{0, 1, 0};

struct Section {
    std::uint64_t start = 0;
    std::uint64_t size = 0;
};

/// The number of rows of a table. The reader fails if there are too many.
std::uint64_t readCount(ByteReader& reader) {
    const auto count = reader.read<std::uint64_t>();
    if (count > kMaxRows)
        static_cast<void>(reader.take(reader.left() + 1));
    return reader.hasFailed() ? 0 : count;
}

/// Reads the tables one after another. Each function returns false if its section is damaged.
class TableReader {
public:
    explicit TableReader(std::span<const std::uint8_t> data)
        : bytes(data) {}

    Result<CrateTables> read();

private:
    [[nodiscard]] bool readHeader();
    [[nodiscard]] bool readContents(std::uint64_t at);
    [[nodiscard]] bool readTokens();
    [[nodiscard]] bool readStrings();
    [[nodiscard]] bool readFields();
    [[nodiscard]] bool readPackedFields(ByteReader& reader, std::uint64_t count);
    [[nodiscard]] bool readFieldSets();
    [[nodiscard]] bool readPaths();
    [[nodiscard]] bool readSpecs();
    [[nodiscard]] bool readPackedSpecs(ByteReader& reader, std::uint64_t count);
    [[nodiscard]] bool areIndicesSound() const;

    [[nodiscard]] bool isPacked() const { return tables.version >= kPackedSections; }

    /// Empty if there is no such section.
    [[nodiscard]] std::span<const std::uint8_t> section(const std::string& name) const {
        const auto found = sections.find(name);
        return found == sections.end() ? std::span<const std::uint8_t>()
                                       : bytes.subspan(found->second.start, found->second.size);
    }

    std::span<const std::uint8_t> bytes;
    std::map<std::string, Section> sections;
    CrateTables tables;
};

bool TableReader::readHeader() {
    ByteReader reader(bytes, kMagic.size());
    tables.version.major = reader.read<std::uint8_t>();
    tables.version.minor = reader.read<std::uint8_t>();
    tables.version.patch = reader.read<std::uint8_t>();
    reader.seek(kTableOfContentsAt);
    return readContents(reader.read<std::uint64_t>());
}

bool TableReader::readContents(std::uint64_t at) {
    constexpr std::uint64_t kNameBytes = 16;
    ByteReader reader(bytes, at);
    const auto count = reader.read<std::uint64_t>();
    if (count > kMaxSections)
        return false;
    for (std::uint64_t i = 0; i < count; ++i) {
        const auto name = reader.take(kNameBytes);
        const Section place{reader.read<std::uint64_t>(), reader.read<std::uint64_t>()};
        if (reader.hasFailed() || place.start > bytes.size() ||
            place.size > bytes.size() - place.start)
            return false;
        const auto end = std::ranges::find(name, 0);
        sections[std::string(name.begin(), end)] = place;
    }
    return !reader.hasFailed();
}

bool TableReader::readTokens() {
    ByteReader reader(section("TOKENS"));
    const auto count = readCount(reader);
    const auto size = reader.read<std::uint64_t>();
    if (size > kMaxTokenBytes)
        return false;
    std::vector<std::uint8_t> unpacked;
    std::span<const std::uint8_t> text;
    if (isPacked()) {
        auto block = unpackBlock(reader.take(reader.read<std::uint64_t>()), size);
        if (!block)
            return false;
        unpacked = *std::move(block);
        text = unpacked;
    } else {
        text = reader.take(size);
    }
    if (reader.hasFailed() || count > text.size())
        return false;
    tables.tokens.reserve(count);
    auto at = text.begin();
    while (tables.tokens.size() < count && at != text.end()) {
        const auto end = std::find(at, text.end(), 0);
        tables.tokens.emplace_back(at, end);
        at = end == text.end() ? end : end + 1;
    }
    return tables.tokens.size() == count;
}

bool TableReader::readStrings() {
    ByteReader reader(section("STRINGS"));
    const auto count = readCount(reader);
    tables.strings = reader.readMany<std::uint32_t>(count);
    return !reader.hasFailed();
}

bool TableReader::readFields() {
    ByteReader reader(section("FIELDS"));
    const auto count = readCount(reader);
    if (isPacked())
        return readPackedFields(reader, count);
    for (std::uint64_t i = 0; i < count && !reader.hasFailed(); ++i) {
        static_cast<void>(reader.read<std::uint32_t>()); // padding
        const auto name = reader.read<std::uint32_t>();
        tables.fields.push_back({name, reader.read<std::uint64_t>()});
    }
    return !reader.hasFailed();
}

bool TableReader::readPackedFields(ByteReader& reader, std::uint64_t count) {
    const auto names = readPackedInts(reader, count);
    const auto packed = reader.take(reader.read<std::uint64_t>());
    if (!names || reader.hasFailed())
        return false;
    const auto block = unpackBlock(packed, count * sizeof(std::uint64_t));
    if (!block || block->size() != count * sizeof(std::uint64_t))
        return count == 0;
    ByteReader values(*block);
    tables.fields.reserve(count);
    for (const std::int32_t name : *names)
        tables.fields.push_back({static_cast<std::uint32_t>(name), values.read<std::uint64_t>()});
    return true;
}

bool TableReader::readFieldSets() {
    ByteReader reader(section("FIELDSETS"));
    const auto count = readCount(reader);
    if (!isPacked()) {
        tables.fieldSets = reader.readMany<std::uint32_t>(count);
        return !reader.hasFailed();
    }
    const auto indices = readPackedInts(reader, count);
    if (!indices)
        return false;
    tables.fieldSets.assign(indices->begin(), indices->end());
    return true;
}

bool TableReader::readPaths() {
    ByteReader reader(section("PATHS"));
    const auto count = readCount(reader);
    constexpr std::uint64_t kMostPerByte = 64; // packed ones take little
    if (reader.hasFailed() || count > bytes.size() * kMostPerByte)
        return false;
    tables.paths.resize(count);
    if (isPacked())
        return readPackedPaths(reader, tables.paths);
    // A record names its sibling by its place in the whole file.
    ByteReader inFile(bytes, sections["PATHS"].start + reader.position());
    return readPathTree(inFile, tables.version, tables.paths);
}

bool TableReader::readSpecs() {
    ByteReader reader(section("SPECS"));
    const auto count = readCount(reader);
    if (isPacked())
        return readPackedSpecs(reader, count);
    for (std::uint64_t i = 0; i < count && !reader.hasFailed(); ++i) {
        if (tables.version < kUnpaddedSpecs)
            static_cast<void>(reader.read<std::uint32_t>());
        CrateSpec spec;
        spec.path = reader.read<std::uint32_t>();
        spec.fieldSet = reader.read<std::uint32_t>();
        spec.type = reader.read<CrateSpecType>();
        tables.specs.push_back(spec);
    }
    return !reader.hasFailed();
}

bool TableReader::readPackedSpecs(ByteReader& reader, std::uint64_t count) {
    const auto paths = readPackedInts(reader, count);
    const auto sets = paths ? readPackedInts(reader, count) : std::nullopt;
    const auto types = sets ? readPackedInts(reader, count) : std::nullopt;
    if (!types)
        return false;
    tables.specs.reserve(count);
    for (std::size_t i = 0; i < count; ++i) {
        tables.specs.push_back(
            {static_cast<std::uint32_t>((*paths)[i]),
             static_cast<std::uint32_t>((*sets)[i]),
             static_cast<CrateSpecType>((*types)[i])});
    }
    return true;
}

bool TableReader::areIndicesSound() const {
    const auto inside = [](const auto& table) {
        return [size = table.size()](std::uint32_t index) { return index < size; };
    };
    const auto isField = [this](std::uint32_t index) {
        return index < tables.fields.size() || index == CrateTables::kEndOfFieldSet;
    };
    const auto isPathSound = [this](const CratePath& path) {
        return !path.isFilled || path.element < tables.tokens.size();
    };
    return std::ranges::all_of(tables.strings, inside(tables.tokens)) &&
           std::ranges::all_of(tables.fields, inside(tables.tokens), &CrateField::name) &&
           std::ranges::all_of(tables.fieldSets, isField) &&
           std::ranges::all_of(tables.paths, isPathSound) &&
           std::ranges::all_of(tables.specs, inside(tables.paths), &CrateSpec::path) &&
           std::ranges::all_of(tables.specs, inside(tables.fieldSets), &CrateSpec::fieldSet);
}

Result<CrateTables> TableReader::read() {
    struct Step {
        bool (TableReader::*run)();
        std::string_view fault;
    };

    // The order matters: the first says how to read all others.
    constexpr auto kSteps = std::to_array<Step>({
        {&TableReader::readHeader, "its table of contents is damaged"},
        {&TableReader::readTokens, "its table of words is damaged"},
        {&TableReader::readStrings, "its table of texts is damaged"},
        {&TableReader::readFields, "its table of fields is damaged"},
        {&TableReader::readFieldSets, "its table of field sets is damaged"},
        {&TableReader::readPaths, "its table of paths is damaged"},
        {&TableReader::readSpecs, "its table of objects is damaged"},
    });
    for (const Step& step : kSteps) {
        if (!(this->*step.run)())
            return fail(Cause::malformed, std::string(step.fault));
        if (tables.version.major != 0)
            return fail(Cause::unsupported, "its version is too new");
    }
    if (!areIndicesSound())
        return fail(Cause::malformed, "its tables do not fit together");
    return std::move(tables);
}

} // namespace

std::optional<std::string> CrateTables::token(std::uint64_t index) const {
    return index < tokens.size() ? std::optional(tokens[index]) : std::nullopt;
}

std::optional<std::string> CrateTables::string(std::uint64_t index) const {
    return index < strings.size() ? token(strings[index]) : std::nullopt;
}

std::optional<std::string> CrateTables::path(std::uint64_t index) const {
    if (index >= paths.size())
        return std::nullopt;
    if (!paths[index].isFilled)
        return std::string();
    std::vector<const CratePath*> chain;
    for (const CratePath* at = &paths[index]; at->parent != CratePath::kNone;
         at = &paths[at->parent])
        chain.push_back(at);
    std::string text;
    for (auto at = chain.rbegin(); at != chain.rend(); ++at) {
        const std::string& element = tokens[(*at)->element];
        const bool isJoined = element.starts_with('{') || element.starts_with('[') ||
                              (!text.empty() && text.back() == '}');
        if ((*at)->isProperty) {
            text += '.';
        } else if (!isJoined) {
            text += '/';
        }
        text += element;
    }
    return text.empty() ? "/" : text;
}

bool isCrate(std::span<const std::uint8_t> bytes) {
    return bytes.size() >= kMagic.size() && std::ranges::equal(bytes.first(kMagic.size()), kMagic);
}

Result<CrateTables> readCrateTables(std::span<const std::uint8_t> bytes) {
    return TableReader(bytes).read();
}

} // namespace zelvo::usd
