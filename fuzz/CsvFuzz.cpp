// SPDX-License-Identifier: MIT
#include "platform/foundation/Csv.h"

#include <cstdint>
#include <cstdlib>
#include <string_view>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const auto* const chars =
        reinterpret_cast<const char*>(data); // NOLINT(cppcoreguidelines-pro-type-reinterpret-cast)
    const auto rows = zelvo::foundation::parseCsv(std::string_view(chars, size));
    if (!rows)
        return 0;
    int line = 0;
    std::size_t bytes = 0;
    for (const auto& row : *rows) {
        if (row.line <= line || row.fields.empty())
            std::abort(); // rows go down, and none is empty
        line = row.line;
        for (const auto& field : row.fields)
            bytes += field.size();
    }
    if (bytes > size)
        std::abort(); // nothing is invented
    return 0;
}
