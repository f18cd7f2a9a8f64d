// SPDX-License-Identifier: MIT
#include "platform/usd/CrateCompression.h"
#include "platform/usd/CrateValues.h"
#include "usd/CrateWriter.h"
#include "usd/Package.h"

#include <gtest/gtest.h>

#include <limits>

namespace zelvo::usd {
namespace {

using test::CrateWriter;

/// A textured square that stands at (0, 0, 5), in the first of its two poses, in metres.
std::string squareLayer(CrateVersion version) {
    using enum CrateSpecType;
    CrateWriter crate(version);
    const auto raw = [](const auto& value) { return CrateWriter::raw(value); };
    const auto def = CrateWriter::inlined(42, 0);
    const std::uint32_t root = crate.path(CratePath::kNone, "");
    const std::uint32_t square = crate.path(root, "Square");
    const std::uint32_t points = crate.path(square, "points", true);
    const std::uint32_t counts = crate.path(square, "faceVertexCounts", true);
    const std::uint32_t indices = crate.path(square, "faceVertexIndices", true);
    const std::uint32_t order = crate.path(square, "xformOpOrder", true);
    const std::uint32_t move = crate.path(square, "xformOp:translate", true);
    const std::uint32_t binding = crate.path(square, "material:binding", true);
    const std::uint32_t paint = crate.path(root, "Paint");
    // The token vectors of children, and a reference of a variant, are left to text layers.
    crate.spec(
        root,
        pseudoRoot,
        {{"metersPerUnit", CrateWriter::inlined(9, std::bit_cast<std::uint32_t>(1.0F))}});
    crate.spec(
        square,
        prim,
        {{"specifier", def}, {"typeName", CrateWriter::inlined(11, crate.token("Mesh"))}});
    crate.spec(
        paint,
        prim,
        {{"specifier", def}, {"typeName", CrateWriter::inlined(11, crate.token("Material"))}});
    crate.spec(
        points,
        attribute,
        {{"default",
          crate.array(24, 4, CrateWriter::rawAll<float>({0, 0, 0, 1, 0, 0, 1, 1, 0, 0, 1, 0}))}});
    crate.spec(counts, attribute, {{"default", crate.array(3, 1, raw(4))}});
    crate.spec(
        indices,
        attribute,
        {{"default", crate.array(3, 4, CrateWriter::rawAll<std::int32_t>({0, 1, 2, 3}))}});
    crate.spec(
        order, attribute, {{"default", crate.array(11, 1, raw(crate.token("xformOp:translate")))}});
    // Times, then samples: each is found by a distance from its own place.
    const std::uint64_t first = CrateWriter::inlined(23, 0x00050000);
    const std::uint64_t later = CrateWriter::inlined(23, 0x007F7F7F);
    const std::string times = raw(std::uint64_t{8}) + raw(std::uint64_t{0});
    const std::string samples =
        raw(std::uint64_t{8}) + raw(std::uint64_t{2}) + raw(first) + raw(later);
    crate.spec(move, attribute, {{"timeSamples", crate.stored(46, times + samples)}});
    const std::string targets = raw(std::uint8_t{3}) + raw(std::uint64_t{1}) + raw(paint);
    crate.spec(binding, relationship, {{"targetPaths", crate.stored(34, targets)}});
    return crate.bytes();
}

constexpr CrateVersion kVersions[] = {{0, 1, 0}, {0, 4, 0}, {0, 6, 0}, {0, 8, 0}};

TEST(Crate, every_version_gives_the_same_scene) {
    for (const CrateVersion version : kVersions) {
        SCOPED_TRACE(int{version.minor});
        const auto scene = readUSD(test::bytesOf(squareLayer(version)));
        ASSERT_TRUE(scene) << scene.error().message;
        EXPECT_EQ(scene->figures.points, 4);
        EXPECT_EQ(scene->figures.triangles, 2);
        EXPECT_EQ(scene->figures.materials, 1);
        EXPECT_EQ(scene->figures.boxMin, glm::dvec3(0, 0, 5));
        EXPECT_EQ(scene->figures.boxMax, glm::dvec3(1, 1, 5));
        EXPECT_EQ(scene->metersPerUnit, 1);
    }
}

TEST(Crate, damage_is_an_error_and_nothing_worse) {
    for (const CrateVersion version : kVersions) {
        const std::string whole = squareLayer(version);
        for (std::size_t i = 0; i < whole.size(); ++i) {
            static_cast<void>(readUSD(test::bytesOf(whole.substr(0, i))));
            for (const unsigned flip : {0xFFU, 0x01U}) {
                std::string changed = whole;
                changed[i] = static_cast<char>(static_cast<unsigned char>(changed[i]) ^ flip);
                static_cast<void>(readUSD(test::bytesOf(changed)));
            }
        }
        // The table of contents stands at the end.
        EXPECT_FALSE(readUSD(test::bytesOf(whole.substr(0, whole.size() - 1))));
    }
}

TEST(Crate, packed_integers_wrap_and_take_differences_of_all_lengths) {
    const std::vector<std::int32_t> values{
        1,
        2,
        3,
        -100,
        30000,
        std::numeric_limits<std::int32_t>::min(),
        std::numeric_limits<std::int32_t>::max(),
        0,
        1};
    const std::string packed = CrateWriter::packedInts(values);
    ByteReader reader(test::bytesOf(packed));
    EXPECT_EQ(readPackedInts(reader, values.size()), values);
    ByteReader tooFew(test::bytesOf(packed));
    EXPECT_FALSE(readPackedInts(tooFew, values.size() + 8));
}

TEST(Crate, a_block_can_have_chunks) {
    const std::string one = CrateWriter::packedBlock("abcabcabc").substr(1);
    const std::string two = CrateWriter::packedBlock("xyz").substr(1);
    const auto sized = [](const std::string& chunk) {
        return CrateWriter::raw(static_cast<std::int32_t>(chunk.size())) + chunk;
    };
    const std::string block = '\2' + sized(one) + sized(two);
    const auto unpacked = unpackBlock(test::bytesOf(block), 100);
    ASSERT_TRUE(unpacked);
    EXPECT_EQ(std::string(unpacked->begin(), unpacked->end()), "abcabcabcxyz");
    EXPECT_FALSE(unpackBlock(test::bytesOf(block), 11));
}

class CrateValue : public testing::Test {
protected:
    /// Decodes a value that stands alone in a layer.
    Value decode(std::uint64_t stored, const std::string& bytes) {
        data = bytes;
        tables.version = {0, 8, 0};
        tables.tokens = {"", "one", "two"};
        tables.strings = {2, 1};
        return CrateValues(test::bytesOf(data), tables, budget).decode(stored);
    }

    std::string data;
    CrateTables tables;
    std::shared_ptr<Budget> budget = std::make_shared<Budget>(1000);
};

TEST_F(CrateValue, inlined_numbers) {
    EXPECT_EQ(
        std::get<Numbers>(decode(CrateWriter::inlined(9, std::bit_cast<std::uint32_t>(0.5F)), "")),
        Numbers{0.5});
    EXPECT_EQ(std::get<Numbers>(decode(CrateWriter::inlined(5, 0xFFFFFFFF), "")), Numbers{-1});
    EXPECT_EQ(std::get<Numbers>(decode(CrateWriter::inlined(7, 0x3800), "")), Numbers{0.5});
    EXPECT_EQ(
        std::get<Numbers>(decode(CrateWriter::inlined(24, 0x00FF0201), "")), (Numbers{1, 2, -1}));
    EXPECT_EQ(
        std::get<Numbers>(decode(CrateWriter::inlined(13, 0x0302), "")), (Numbers{2, 0, 0, 3}));
    EXPECT_EQ(std::get<std::string>(decode(CrateWriter::inlined(10, 0), "")), "two");
    EXPECT_EQ(std::get<std::string>(decode(CrateWriter::inlined(12, 1), "")), "one");
    EXPECT_TRUE(std::holds_alternative<std::monostate>(decode(CrateWriter::inlined(10, 9), "")));
}

TEST_F(CrateValue, packed_numbers_are_a_table_or_integers) {
    std::vector<std::int32_t> numbers(16, 3);
    CrateWriter crate({0, 8, 0});
    const auto ints = crate.packedArray(8, 16, 'i' + CrateWriter::packedInts(numbers));
    numbers.assign(16, 1);
    const auto table = crate.packedArray(
        9,
        16,
        't' + CrateWriter::raw(std::uint32_t{2}) + CrateWriter::rawAll<double>({5, 7.5}) +
            CrateWriter::packedInts(numbers));
    numbers.back() = 2; // outside of the table
    const auto outside = crate.packedArray(
        9,
        16,
        't' + CrateWriter::raw(std::uint32_t{2}) + CrateWriter::rawAll<double>({5, 7.5}) +
            CrateWriter::packedInts(numbers));
    const std::string bytes = crate.bytes();
    EXPECT_EQ(std::get<FloatArray>(decode(ints, bytes)).values, std::vector<float>(16, 3));
    EXPECT_EQ(std::get<FloatArray>(decode(table, bytes)).values, std::vector<float>(16, 7.5));
    EXPECT_TRUE(std::holds_alternative<std::monostate>(decode(outside, bytes)));
}

TEST_F(CrateValue, a_reference_is_found_behind_a_dictionary) {
    tables.paths.resize(2);
    const auto raw = [](const auto& value) { return CrateWriter::raw(value); };
    // One entry: its key, the distance to its value, the value.
    const std::string dictionary = raw(std::uint64_t{1}) + raw(std::uint32_t{0}) +
                                   raw(std::uint64_t{8}) + raw(std::uint64_t{0});
    const auto item = [&](std::uint32_t asset, const std::string& custom) {
        return raw(asset) + raw(std::uint32_t{1}) + raw(0.0) + raw(1.0) + custom;
    };
    const std::string list = raw(std::uint8_t{1 | 2}) + raw(std::uint64_t{2}) +
                             item(0, dictionary) + item(1, raw(std::uint64_t{0}));
    const auto value = decode(std::uint64_t{35} << 48U, list);
    const auto& references = std::get<ListOp<Reference>>(value);
    EXPECT_TRUE(references.isExplicit);
    EXPECT_EQ(references.explicitItems, (std::vector<Reference>{{"two", ""}, {"one", ""}}));
}

TEST_F(CrateValue, what_all_values_take_together_is_bounded) {
    const std::string array = CrateWriter::raw(std::uint64_t{100}) + std::string(400, '\1');
    const std::uint64_t stored = std::uint64_t{1} << 63U | std::uint64_t{3} << 48U | 8U;
    const std::string bytes = std::string(8, '\0') + array;
    EXPECT_TRUE(std::holds_alternative<IntArray>(decode(stored, bytes)));
    EXPECT_TRUE(std::holds_alternative<IntArray>(decode(stored, bytes)));
    EXPECT_TRUE(std::holds_alternative<std::monostate>(decode(stored, bytes)));
}

} // namespace
} // namespace zelvo::usd
