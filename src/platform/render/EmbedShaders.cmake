# Writes a C++ source file with the given shader files as strings. Run as:
#   cmake -DOUTPUT=file.cpp "-DINPUTS=a.glsl;b.glsl" -P EmbedShaders.cmake
set(rows "")
foreach(input ${INPUTS})
    get_filename_component(name "${input}" NAME)
    file(READ "${input}" text)
    string(APPEND rows "    {\"${name}\", R\"GLSL(${text})GLSL\"},\n")
endforeach()
set(text "// SPDX-License-Identifier: MIT
// Generated from the files under shaders/.
#include \"platform/render/ShaderSources.h\"

#include \"platform/foundation/Check.h\"

#include <utility>

namespace zelvo::render {
namespace {

constexpr std::pair<std::string_view, std::string_view> kSources[] = {
${rows}};

} // namespace

std::string_view shaderSource(std::string_view name) {
    for (const auto& [file, text] : kSources) {
        if (file == name) return text;
    }
    FATAL(\"no shader file {}\", name);
}

} // namespace zelvo::render
")
file(WRITE "${OUTPUT}" "${text}")
