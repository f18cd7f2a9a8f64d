// SPDX-License-Identifier: MIT
#include "platform/foundation/Csv.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace zelvo::foundation {

namespace {

using namespace std::string_literals;

TEST(Csv, gives_the_fields_and_the_line_where_each_row_begins) {
    struct Row {
        std::string text;
        std::vector<CsvRow> rows;
    };

    // clang-format off
    const Row rows[] = {
        {"",                            {}                                                        },
        {"\n\r\n\r",                    {}                                                        },
        {"a",                           {{1, {"a"}}}                                              },
        {"a,b\nc,d",                    {{1, {"a", "b"}}, {2, {"c", "d"}}}                        },
        {"a,b\r\n\r\nc,d\r\n",          {{1, {"a", "b"}}, {3, {"c", "d"}}}                        },
        {"a\rb\r",                      {{1, {"a"}}, {2, {"b"}}}                                  },
        {"\xEF\xBB\xBF" "a,b",          {{1, {"a", "b"}}}                                         },
        {",\n,a,\n",                    {{1, {"", ""}}, {2, {"", "a", ""}}}                       },
        {R"("a,b","c")",               {{1, {"a,b", "c"}}}                                       },
        {R"("","""","a""b")",    {{1, {"", "\"", "a\"b"}}}                                 },
        {"\"a\r\nb\nc\",d\ne,f",        {{1, {"a\r\nb\nc", "d"}}, {4, {"e", "f"}}}                },
        {"12\" vinyl,x\n",              {{1, {"12\" vinyl", "x"}}}                                },
        {" a , b ",                     {{1, {" a ", " b "}}}                                     },
        // A table of a spreadsheet that uses the comma in numbers.
        {"a;b\n1,5;\"x;y\"",            {{1, {"a", "b"}}, {2, {"1,5", "x;y"}}}                    },
        {"a\tb\n1;2\t3",                {{1, {"a", "b"}}, {2, {"1;2", "3"}}}                      },
        {"\"a;b\",c\nd;e,f",            {{1, {"a;b", "c"}}, {2, {"d;e", "f"}}}                    },
        {"a\nb;c,d",                    {{1, {"a"}}, {2, {"b;c", "d"}}}                           },
    };
    // clang-format on
    for (const auto& row : rows) {
        const auto read = parseCsv(row.text);
        ASSERT_TRUE(read) << row.text << read.error().text;
        EXPECT_TRUE(*read == row.rows) << row.text;
    }
}

TEST(Csv, refuses_what_is_no_table_and_what_is_too_large) {
    struct Row {
        std::string text;
        int line;
        std::string part;
    };

    const auto times = [](std::size_t count, const std::string& text) {
        std::string all;
        for (std::size_t i = 0; i < count; ++i)
            all += text;
        return all;
    };
    // clang-format off
    const Row rows[] = {
        {"a,b\n\"c\nd,e\nf",                           2, "closing quote"},
        {"a\n\"b\"c,d",                                2, "two quotes"   },
        {"a\n\"b\" ,d",                                2, "two quotes"   },
        {"a,\xFF\n",                                   1, "UTF-8"        },
        {times(kMaxCsvRows + 1, "a\n"),                int{kMaxCsvRows} + 1, "rows"},
        {"a\n" + times(kMaxCsvColumns, ","),           2, "fields"       },
        {"a\n" + std::string(kMaxCsvFieldBytes + 1, 'x'), 2, "KiB"       },
        {std::string(kMaxCsvBytes + 1, '\n'),          1, "MiB"          },
    };
    // clang-format on
    for (const auto& row : rows) {
        const auto read = parseCsv(row.text);
        ASSERT_FALSE(read) << row.part;
        EXPECT_EQ(read.error().line, row.line) << row.part;
        EXPECT_NE(read.error().text.find(row.part), std::string::npos) << read.error().text;
    }
    // As large as allowed.
    EXPECT_EQ(parseCsv(times(kMaxCsvRows, "a\n"))->size(), kMaxCsvRows);
    EXPECT_EQ(parseCsv(times(kMaxCsvColumns - 1, ","))->front().fields.size(), kMaxCsvColumns);
    EXPECT_TRUE(parseCsv(std::string(kMaxCsvFieldBytes, 'x')));
}

} // namespace

} // namespace zelvo::foundation
