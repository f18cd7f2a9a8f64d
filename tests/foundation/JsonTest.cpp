// SPDX-License-Identifier: MIT
#include "platform/foundation/JsonObject.h"

#include <fmt/format.h>
#include <gtest/gtest.h>

#include <string>

namespace zelvo::foundation {
namespace {

TEST(Json, ReadsNumbersToTheLastBit) {
    using Row = std::pair<std::string, double>;

    // clang-format off
    const Row rows[] = {
        {"0e308",                           0                      },
        {"-0.00E+99999999999",              0                      },
        {"0.0001e309",                      1e305                  },
        {"1e-99999999999",                  0                      },
        {"0.00e-400",                       0                      },
        {"1e-400",                          0                      },
        {"123456789012345678901234567890e-30", 0.12345678901234568 },
        {"9007199254740993",                9007199254740992.0     },
        {"2.2250738585072011e-308",         0x0.fffffffffffffp-1022},
        {"-1.7976931348623157e308",         -0x1.fffffffffffffp1023},
        {fmt::format("0.{:0400}1", 0), 0                     },
    };
    // clang-format on
    for (const auto& [text, value] : rows) {
        const auto read = parseJson(text);
        ASSERT_TRUE(read) << text << ": " << read.error().text;
        EXPECT_EQ(read->number, value) << text;
    }
}

TEST(Json, RefusesWhatNobodyWrites) {
    const auto repeated = [](int count, const char* part) {
        std::string text;
        for (int i = 0; i < count; ++i)
            text += fmt::format(fmt::runtime(part), i);
        return text;
    };

    using Row = std::pair<std::string, std::string>;

    // clang-format off
    const Row rows[] = {
        {R"(["\"0", 0e9, 0e])",
         "1: not JSON: a digit is expected in the exponent"                                     },
        {"[1 e0]", "1: not JSON: a comma or a closing ] is missing"},
        {"[1,\n1e309]",                                   "2: not JSON: a number is too big"    },
        {"[1,\n18e307]",                                  "2: not JSON: a number is too big"    },
        {std::string("1 \0 2", 5),
         "1: not JSON: there is more text behind the end of the first value"                    },
        {fmt::format("{{{}\"k\":0}}", repeated(800'000, "\"k{}\":0,")), "1: an object has more than 1000 keys"},
        {fmt::format("[{}0]", repeated(500'000, "0,")), "1: the file has more than 500000 values"},
    };
    // clang-format on
    for (const auto& [text, why] : rows) {
        const auto read = parseJson(text);
        ASSERT_FALSE(read) << why;
        EXPECT_EQ(fmt::format("{}: {}", read.error().line, read.error().text), why);
    }
}

} // namespace
} // namespace zelvo::foundation
