// SPDX-License-Identifier: MIT
#include "platform/music/TagReader.h"

#include "platform/foundation/HelperProgram.h"
#include "platform/music/TagLines.h"

#include <string>
#include <string_view>
#include <utility>

namespace zelvo::music {

using foundation::Cause;
using foundation::fail;
using foundation::HelperEnding;
using foundation::Result;

namespace {

constexpr const char* kProgram = "zelvo-tags";

using Paths = std::span<const std::filesystem::path>;
using Bytes = std::vector<std::uint8_t>;

Bytes inputOf(Paths files) {
    Bytes input;
    for (const auto& file : files) {
        const std::string& name = file.native();
        input.insert(input.end(), name.begin(), name.end());
        input.push_back('\0');
    }
    return input;
}

/// The whole lines; the helper may have ended in the middle of one.
std::vector<Result<SongTags>> linesOf(const Bytes& output) {
    std::vector<Result<SongTags>> lines;
    std::string_view rest(reinterpret_cast<const char*>(output.data()), output.size());
    for (auto end = rest.find('\n'); end != std::string_view::npos; end = rest.find('\n')) {
        lines.push_back(tagsOfLine(rest.substr(0, end)));
        rest.remove_prefix(end + 1);
    }
    return lines;
}

} // namespace

Result<std::vector<Result<SongTags>>> readTags(Paths files, const IsStopped& isStopped) {
    std::vector<Result<SongTags>> all;
    while (all.size() < files.size()) {
        const Paths left = files.subspan(all.size());
        const Bytes input = inputOf(left);
        const auto ending = foundation::runHelper(
            {.program = kProgram,
             .arguments = {"tags"},
             .input = input,
             .maxOutputBytes = kMaxLineBytes * left.size(),
             .isStopped = isStopped});
        if (!ending)
            return tl::unexpected(ending.error());
        if (ending->exitStatus != 0)
            return fail(
                Cause::unavailable, std::string(kProgram) + " does not work; install it anew");
        for (auto& line : linesOf(ending->output)) {
            if (all.size() < files.size())
                all.push_back(std::move(line));
        }
        if (all.size() < files.size()) // the helper has ended at this file
            all.emplace_back(fail(Cause::tooLarge, "it takes too much time or memory to read"));
    }
    return all;
}

Result<Bytes> readCover(const std::filesystem::path& file, const IsStopped& isStopped) {
    const Bytes input = inputOf({&file, 1});
    return foundation::runHelper({.program = kProgram,
                                  .arguments = {"cover"},
                                  .input = input,
                                  .maxOutputBytes = kMaxCoverBytes,
                                  .isStopped = isStopped})
        .and_then([](HelperEnding ending) -> Result<Bytes> {
            if (ending.signal != 0 || ending.exitStatus != 0)
                return fail(Cause::notFound, "it has no cover that can be read");
            return std::move(ending.output);
        });
}

} // namespace zelvo::music
