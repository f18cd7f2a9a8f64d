// SPDX-License-Identifier: MIT
#include "platform/render/ShaderProgram.h"

#include "platform/render/ShaderBlocks.h"
#include "platform/render/ShaderSources.h"

#include <epoxy/gl.h>
#include <fmt/format.h>

#include <array>

namespace zelvo::render {
namespace {

using foundation::Cause;
using foundation::fail;
using foundation::Result;

std::string expanded(std::string_view text, std::string_view modifier) {
    constexpr std::string_view kInclude = "#include \"";
    std::string result;
    while (!text.empty()) {
        const std::size_t end = text.find('\n');
        const std::string_view line = text.substr(0, end);
        text = end == std::string_view::npos ? std::string_view() : text.substr(end + 1);
        if (!line.starts_with(kInclude)) {
            result.append(line).push_back('\n');
            continue;
        }
        const std::string_view file =
            line.substr(kInclude.size(), line.rfind('"') - kInclude.size());
        result += file == "MODIFIER" ? std::string(modifier) + "\n"
                                     : expanded(shaderSource(file), modifier);
    }
    return result;
}

std::string stageText(const ProgramSource& source, std::string_view file) {
    std::string text = "#version 450 core\n";
    for (const std::string& define : source.defines) {
        text += "#define " + define + "\n";
    }
    return text + sharedDeclarations() + expanded(shaderSource(file), source.modifier);
}

/// Owns a shader object until the program is linked.
class Stage {
public:
    explicit Stage(GLenum kind)
        : name(glCreateShader(kind)) {}

    ~Stage() { glDeleteShader(name); }

    Stage(const Stage&) = delete;
    Stage& operator=(const Stage&) = delete;

    [[nodiscard]] Result<void> compile(const std::string& text) const {
        const char* lines = text.c_str();
        glShaderSource(name, 1, &lines, nullptr);
        glCompileShader(name);
        GLint done = GL_FALSE;
        glGetShaderiv(name, GL_COMPILE_STATUS, &done);
        if (done == GL_TRUE)
            return {};
        std::array<char, 2000> log{};
        glGetShaderInfoLog(name, static_cast<GLsizei>(log.size()), nullptr, log.data());
        return fail(Cause::malformed, log.data());
    }

    GLuint name; // NOLINT(misc-non-private-member-variables-in-classes)
};

} // namespace

Result<ProgramHandle> buildProgram(const ProgramSource& source) {
    const Stage vertex(GL_VERTEX_SHADER);
    const Stage fragment(GL_FRAGMENT_SHADER);
    if (auto done = vertex.compile(stageText(source, source.vertexFile)); !done) {
        return tl::unexpected(done.error().in(source.vertexFile));
    }
    if (auto done = fragment.compile(stageText(source, source.fragmentFile)); !done) {
        return tl::unexpected(done.error().in(source.fragmentFile));
    }
    ProgramHandle program(glCreateProgram());
    glAttachShader(program.name(), vertex.name);
    glAttachShader(program.name(), fragment.name);
    glLinkProgram(program.name());
    GLint done = GL_FALSE;
    glGetProgramiv(program.name(), GL_LINK_STATUS, &done);
    if (done == GL_TRUE)
        return program;
    std::array<char, 2000> log{};
    glGetProgramInfoLog(program.name(), static_cast<GLsizei>(log.size()), nullptr, log.data());
    return fail(Cause::malformed, fmt::format("{}: {}", source.fragmentFile, log.data()));
}

} // namespace zelvo::render
