// SPDX-License-Identifier: MIT
#include "platform/usd/CrateValues.h"

#include "platform/usd/ByteReader.h"
#include "platform/usd/CrateNumbers.h"

#include <array>
#include <utility>

namespace zelvo::usd {
namespace {

// The types that are no numbers, by their numbers in the format.
enum Type : unsigned {
    kString = 10,
    kToken = 11,
    kAssetPath = 12,
    kTokenListOp = 32,
    kStringListOp = 33,
    kPathListOp = 34,
    kReferenceListOp = 35,
    kPathVector = 40,
    kTokenVector = 41,
    kVariantSelections = 45,
    kTimeSamples = 46,
    kPayload = 47,
    kStringVector = 50,
    kBlocked = 51,
    kPayloadListOp = 55,
};

/// What a stored value's 64 bits say.
struct Stored {
    explicit Stored(std::uint64_t bits)
        : isArray((bits >> 63U & 1U) != 0)
        , isInlined((bits >> 62U & 1U) != 0)
        , isPacked((bits >> 61U & 1U) != 0)
        , type(static_cast<unsigned>(bits >> 48U & 0xFFU))
        , payload(bits & 0xFFFF'FFFF'FFFFU) {}

    bool isArray, isInlined, isPacked;
    unsigned type;
    std::uint64_t payload;
};

/// Reads texts and lists of them at one place of the file. Whatever is damaged marks it as failed.
class Decoder {
public:
    Decoder(ByteReader place, const CrateTables& source, Budget& limit)
        : reader(place)
        , tables(source)
        , budget(limit) {}

    [[nodiscard]] bool hasFailed() const { return failed || reader.hasFailed(); }

    std::string token() { return checked(tables.token(reader.read<std::uint32_t>())); }

    std::string string() { return checked(tables.string(reader.read<std::uint32_t>())); }

    std::string path() { return checked(tables.path(reader.read<std::uint32_t>())); }

    Reference reference();
    Reference payload();

    /// A list with its length in front.
    template <class T> std::vector<T> list(T (Decoder::*item)()) {
        return items(reader.read<std::uint64_t>(), item);
    }

    template <class T> std::vector<T> items(std::uint64_t count, T (Decoder::*item)());
    template <class T> ListOp<T> listOp(T (Decoder::*item)());
    VariantSelections variantSelections();

private:
    std::string checked(std::optional<std::string> text);
    void skipDictionary();

    ByteReader reader;
    const CrateTables& tables;
    Budget& budget;
    bool failed = false;
};

std::string Decoder::checked(std::optional<std::string> text) {
    if (!text || !budget.take(text->size() + sizeof(std::string))) {
        failed = true;
        return {};
    }
    return *std::move(text);
}

/// Nothing in it is needed, but what follows is.
void Decoder::skipDictionary() {
    const auto count = reader.read<std::uint64_t>();
    for (std::uint64_t i = 0; i < count && !reader.hasFailed(); ++i) {
        static_cast<void>(reader.read<std::uint32_t>()); // the key
        const std::uint64_t at = reader.position();
        const auto distance = reader.read<std::uint64_t>();
        const std::uint64_t next = at + distance + sizeof(std::uint64_t);
        if (next <= at) {
            failed = true;
            return;
        }
        reader.seek(next);
    }
}

Reference Decoder::reference() {
    Reference reference = payload();
    skipDictionary();
    return reference;
}

/// With the offset and scale of its time, which a still picture does not need.
Reference Decoder::payload() {
    Reference reference{string(), path()};
    static_cast<void>(reader.take(2 * sizeof(double)));
    if (reference.prim == "/")
        reference.prim.clear();
    return reference;
}

template <class T> std::vector<T> Decoder::items(std::uint64_t count, T (Decoder::*item)()) {
    std::vector<T> result;
    for (std::uint64_t i = 0; i < count && !hasFailed(); ++i)
        result.push_back((this->*item)());
    return result;
}

template <class T> ListOp<T> Decoder::listOp(T (Decoder::*item)()) {
    const unsigned bits = reader.read<std::uint8_t>();
    ListOp<T> result;
    std::vector<T> ordered;
    result.isExplicit = (bits & 1U) != 0;
    // In the order in which they are stored.
    const auto groups = std::to_array<std::pair<unsigned, std::vector<T>*>>(
        {{2U, &result.explicitItems},
         {4U, &result.added},
         {32U, &result.prepended},
         {64U, &result.appended},
         {8U, &result.deleted},
         {16U, &ordered}});
    for (const auto& [bit, group] : groups) {
        if ((bits & bit) != 0)
            *group = list(item);
    }
    return result;
}

VariantSelections Decoder::variantSelections() {
    VariantSelections result;
    const auto count = reader.read<std::uint64_t>();
    for (std::uint64_t i = 0; i < count && !hasFailed(); ++i) {
        const std::string set = string();
        result[set] = string();
    }
    return result;
}

/// A type that has its value at an offset.
Value decodeAt(Decoder& decoder, unsigned type, CrateVersion version) {
    constexpr CrateVersion kPayloadHasOffset{0, 8, 0};
    switch (type) {
    case kTokenListOp:
        return decoder.listOp(&Decoder::token);
    case kStringListOp:
        return decoder.listOp(&Decoder::string);
    case kPathListOp:
        return decoder.listOp(&Decoder::path);
    case kReferenceListOp:
        return decoder.listOp(&Decoder::reference);
    case kPayloadListOp:
        return decoder.listOp(&Decoder::payload);
    case kPathVector:
        return decoder.list(&Decoder::path);
    case kTokenVector:
        return decoder.list(&Decoder::token);
    case kStringVector:
        return decoder.list(&Decoder::string);
    case kVariantSelections:
        return decoder.variantSelections();
    case kPayload: {
        // Without the two numbers it may stand at the very end of the file.
        if (version >= kPayloadHasOffset)
            return ListOp<Reference>::exactly({decoder.payload()});
        Reference payload{decoder.string(), decoder.path()};
        return ListOp<Reference>::exactly({std::move(payload)});
    }
    default:
        return {};
    }
}

bool isText(unsigned type) {
    return type == kString || type == kToken || type == kAssetPath;
}

Value numbersOf(const Stored& stored, const NumberType& type, ByteReader& reader) {
    auto value = stored.isInlined ? inlinedNumbers(type, static_cast<std::uint32_t>(stored.payload))
                                  : readNumbers(type, reader);
    return value.empty() ? Value() : Value(std::move(value));
}

Value textOf(const Stored& stored, const CrateTables& tables) {
    auto text =
        stored.type == kString ? tables.string(stored.payload) : tables.token(stored.payload);
    return text ? Value(*std::move(text)) : Value();
}

} // namespace

Value CrateValues::decode(std::uint64_t bits) const {
    const Stored stored(bits);
    if (stored.type == kBlocked)
        return Blocked{};
    if (stored.isArray && stored.payload == 0)
        return isText(stored.type) ? Value(StringList()) : Value(FloatArray());
    ByteReader reader(bytes, stored.payload);
    if (const auto numbers = numberTypeOf(stored.type)) {
        return stored.isArray
                   ? readNumberArray(*numbers, reader, {tables.version, stored.isPacked}, *budget)
                   : numbersOf(stored, *numbers, reader);
    }
    if (isText(stored.type) && !stored.isArray)
        return textOf(stored, tables);
    const std::uint64_t count = stored.isArray ? readArrayLength(reader, tables.version) : 0;
    Decoder decoder(reader, tables, *budget);
    const auto text = stored.type == kToken ? &Decoder::token : &Decoder::string;
    Value value = isText(stored.type) ? Value(decoder.items(count, text))
                                      : decodeAt(decoder, stored.type, tables.version);
    return decoder.hasFailed() ? Value() : value;
}

bool CrateValues::isBlocked(std::uint64_t stored) {
    return Stored(stored).type == kBlocked;
}

std::optional<std::uint64_t> CrateValues::firstSample(std::uint64_t bits) const {
    // How many blocked samples may stand in front.
    constexpr std::uint64_t kMostBlocked = 1000;
    const Stored stored(bits);
    if (stored.type != kTimeSamples)
        return std::nullopt;
    ByteReader reader(bytes, stored.payload);
    // Distances count from their own place. What they lead to is the times, then the values.
    reader.seek(stored.payload + reader.read<std::uint64_t>() + sizeof(std::uint64_t));
    const std::uint64_t at = reader.position();
    reader.seek(at + reader.read<std::uint64_t>());
    const auto count = std::min(reader.read<std::uint64_t>(), kMostBlocked);
    for (std::uint64_t i = 0; i < count; ++i) {
        const auto sample = reader.read<std::uint64_t>();
        if (reader.hasFailed())
            break;
        if (!isBlocked(sample))
            return sample;
    }
    return std::nullopt;
}

} // namespace zelvo::usd
