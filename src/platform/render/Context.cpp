// SPDX-License-Identifier: MIT
#include "platform/render/Context.h"

#include "platform/foundation/Check.h"

#include <epoxy/egl.h>
#include <epoxy/gl.h>
#include <fmt/format.h>

#include <array>
#include <cstdlib>
#include <string_view>
#include <vector>

namespace zelvo::render {

using foundation::Cause;
using foundation::fail;
using foundation::Result;

struct HeadlessContext::Names {
    EGLDisplay display = EGL_NO_DISPLAY;
    EGLContext context = EGL_NO_CONTEXT;
};

namespace {

bool wantsSoftware() {
    const char* value = std::getenv("ZELVO_SOFTWARE");
    return value != nullptr && std::string_view(value) == "1";
}

bool has(const char* extensions, std::string_view name) {
    return extensions != nullptr &&
           std::string_view(extensions).find(name) != std::string_view::npos;
}

/// The EGL displays of graphics cards, without the software device.
std::vector<EGLDisplay> hardwareDisplays() {
    const char* client = eglQueryString(EGL_NO_DISPLAY, EGL_EXTENSIONS);
    if (!has(client, "EGL_EXT_platform_device") || !has(client, "EGL_EXT_device_enumeration"))
        return {};
    std::array<EGLDeviceEXT, 16> devices{};
    EGLint count = 0;
    if (eglQueryDevicesEXT(static_cast<EGLint>(devices.size()), devices.data(), &count) ==
        EGL_FALSE)
        return {};
    std::vector<EGLDisplay> displays;
    for (std::size_t i = 0; i < static_cast<std::size_t>(count); ++i) {
        if (has(eglQueryDeviceStringEXT(devices[i], EGL_EXTENSIONS), "EGL_MESA_device_software"))
            continue;
        displays.push_back(eglGetPlatformDisplayEXT(EGL_PLATFORM_DEVICE_EXT, devices[i], nullptr));
    }
    return displays;
}

EGLContext makeContext(EGLDisplay display) {
    constexpr auto kAttributes = std::to_array<EGLint>(
        {EGL_CONTEXT_MAJOR_VERSION,
         4,
         EGL_CONTEXT_MINOR_VERSION,
         5,
         EGL_CONTEXT_OPENGL_PROFILE_MASK,
         EGL_CONTEXT_OPENGL_CORE_PROFILE_BIT,
         EGL_NONE});
    return eglCreateContext(display, EGL_NO_CONFIG_KHR, EGL_NO_CONTEXT, kAttributes.data());
}

/// Makes a context on the display and makes it current. The display is never terminated, because
/// EGL shares it with the whole process.
Result<EGLContext> openOn(EGLDisplay display) {
    if (display == EGL_NO_DISPLAY)
        return fail(Cause::unavailable, "no EGL display");
    if (eglInitialize(display, nullptr, nullptr) == EGL_FALSE) {
        return fail(
            Cause::unavailable, fmt::format("EGL does not start (error {:#x})", eglGetError()));
    }
    if (eglBindAPI(EGL_OPENGL_API) == EGL_FALSE)
        return fail(Cause::unavailable, "EGL offers no desktop OpenGL");
    EGLContext context = makeContext(display);
    if (context == EGL_NO_CONTEXT) {
        return fail(
            Cause::unavailable,
            fmt::format("no OpenGL 4.5 core context (error {:#x})", eglGetError()));
    }
    if (eglMakeCurrent(display, EGL_NO_SURFACE, EGL_NO_SURFACE, context) == EGL_FALSE) {
        eglDestroyContext(display, context);
        return fail(Cause::unavailable, "EGL cannot draw without a surface");
    }
    return context;
}

} // namespace

DeviceInfo readDeviceInfo() {
    DeviceInfo info;
    info.name = reinterpret_cast<const char*>(
        glGetString(GL_RENDERER)); // NOLINT: OpenGL's strings are unsigned
    for (const std::string_view name : {"llvmpipe", "softpipe", "Software Rasterizer"}) {
        info.isSoftware = info.isSoftware || info.name.find(name) != std::string::npos;
    }
    if (!info.isSoftware && epoxy_has_gl_extension("GL_EXT_texture_filter_anisotropic")) {
        glGetFloatv(GL_MAX_TEXTURE_MAX_ANISOTROPY_EXT, &info.maxAnisotropy);
    }
    glGetIntegerv(GL_UNIFORM_BUFFER_OFFSET_ALIGNMENT, &info.uniformAlignment);
    return info;
}

Result<std::unique_ptr<HeadlessContext>> HeadlessContext::make() {
    const auto owning = [](EGLDisplay display, EGLContext context) {
        return std::unique_ptr<HeadlessContext>(
            new HeadlessContext(std::make_unique<Names>(Names{display, context})));
    };
    const std::vector<EGLDisplay> displays =
        wantsSoftware() ? std::vector<EGLDisplay>() : hardwareDisplays();
    for (EGLDisplay display : displays) {
        if (const auto context = openOn(display))
            return owning(display, *context);
    }
    // EGL before 1.5 has only the extension's entry point, EGL 1.5 has both.
    EGLDisplay display =
        eglGetPlatformDisplayEXT(EGL_PLATFORM_SURFACELESS_MESA, EGL_DEFAULT_DISPLAY, nullptr);
    auto context = openOn(display);
    if (!context) {
        return fail(
            Cause::unavailable,
            fmt::format(
                "no graphics: {}; install a driver with OpenGL 4.5, such as Mesa",
                context.error().message));
    }
    return owning(display, *context);
}

HeadlessContext::HeadlessContext(std::unique_ptr<Names> made)
    : names(std::move(made)) {}

HeadlessContext::~HeadlessContext() {
    if (eglGetCurrentContext() == names->context) {
        eglMakeCurrent(names->display, EGL_NO_SURFACE, EGL_NO_SURFACE, EGL_NO_CONTEXT);
    }
    eglDestroyContext(names->display, names->context);
}

void HeadlessContext::makeCurrent() const {
    if (eglGetCurrentContext() == names->context)
        return;
    const EGLBoolean done =
        eglMakeCurrent(names->display, EGL_NO_SURFACE, EGL_NO_SURFACE, names->context);
    CHECK(
        done == EGL_TRUE,
        "the graphics context cannot be made current (error {:#x})",
        eglGetError());
}

} // namespace zelvo::render
