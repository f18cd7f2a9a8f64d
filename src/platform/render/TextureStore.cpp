// SPDX-License-Identifier: MIT
#include "platform/render/TextureStore.h"

#include "platform/render/LinearResampler.h"

#include <epoxy/gl.h>

#include <algorithm>
#include <bit>
#include <cmath>

namespace zelvo::render {
namespace {

using image::Image;
using image::ImagePtr;
using image::LightProbe;
using scene::SCNWrapMode;

constexpr float kMaxAnisotropy = 8;
constexpr int kSpareFrames = 15; ///< a quarter of a second: the slowest videos

GLint wrapOf(SCNWrapMode mode) {
    switch (mode) {
    case SCNWrapMode::clamp:
        return GL_CLAMP_TO_EDGE;
    case SCNWrapMode::repeat:
        return GL_REPEAT;
    case SCNWrapMode::clampToBorder:
        return GL_CLAMP_TO_BORDER;
    case SCNWrapMode::mirror:
        return GL_MIRRORED_REPEAT;
    }
    return GL_REPEAT;
}

Image premultiplied(const Image& picture) {
    Image result = picture;
    for (std::size_t i = 0; i < result.pixels.size(); i += 4) {
        const unsigned alpha = result.pixels[i + 3];
        for (std::size_t c = i; c < i + 3; ++c) {
            result.pixels[c] = static_cast<std::uint8_t>((result.pixels[c] * alpha + 127) / 255);
        }
    }
    return result;
}

Image resized(const Image& picture, int width, int height) {
    if (picture.width == width && picture.height == height)
        return picture;
    Image result(width, height);
    LinearResampler({picture.width, picture.height}, {width, height})
        .write(picture.pixels, result.pixels.data());
    return result;
}

TextureHandle makeTexture(GLenum target) {
    GLuint name = 0;
    glCreateTextures(target, 1, &name);
    return TextureHandle(name);
}

SamplerHandle makeSampler(GLint wrapS, GLint wrapT, GLint minify) {
    GLuint name = 0;
    glCreateSamplers(1, &name);
    glSamplerParameteri(name, GL_TEXTURE_WRAP_S, wrapS);
    glSamplerParameteri(name, GL_TEXTURE_WRAP_T, wrapT);
    glSamplerParameteri(name, GL_TEXTURE_MIN_FILTER, minify);
    glSamplerParameteri(name, GL_TEXTURE_MAG_FILTER, GL_LINEAR);
    return SamplerHandle(name);
}

int levelCount(int width, int height) {
    return std::bit_width(static_cast<unsigned>(std::max(width, height)));
}

bool hasNormals(const Image& picture) {
    return !picture.fineNormals.empty();
}

TextureHandle makePictureTexture(const Image& picture, bool hasLevels) {
    TextureHandle texture = makeTexture(GL_TEXTURE_2D);
    const int levels = hasLevels ? levelCount(picture.width, picture.height) : 1;
    const GLenum format = hasNormals(picture) ? GL_RG16 : GL_RGBA8;
    glTextureStorage2D(texture.name(), levels, format, picture.width, picture.height);
    return texture;
}

void upload(const TextureHandle& texture, const Image& picture, bool hasLevels) {
    const bool isFine = hasNormals(picture);
    glTextureSubImage2D(
        texture.name(),
        0,
        0,
        0,
        picture.width,
        picture.height,
        isFine ? GL_RG : GL_RGBA,
        isFine ? GL_UNSIGNED_SHORT : GL_UNSIGNED_BYTE,
        isFine ? static_cast<const void*>(picture.fineNormals.data()) : picture.pixels.data());
    if (hasLevels)
        glGenerateTextureMipmap(texture.name());
}

template <class Map> bool dropExpired(Map& map) {
    return std::erase_if(map, [](const auto& entry) { return entry.second.owner.expired(); }) > 0;
}

} // namespace

TextureStore::TextureStore(DeviceInfo deviceInfo, PictureHoles& pictureHoles)
    : device(std::move(deviceInfo))
    , holes(pictureHoles) {}

std::uint32_t TextureStore::picture(const ImagePtr& picture, PictureUse use) {
    KeptPicture& entry = pictures[{picture.get(), use}];
    // A new picture can get the address of a deleted one; then the old weak pointer has expired.
    if (entry.texture && !entry.owner.expired())
        return entry.texture.name();
    entry.owner = picture;
    const bool hasLevels = use != PictureUse::backdrop;
    const bool hasSize = entry.width == picture->width && entry.height == picture->height &&
                         entry.isFine == hasNormals(*picture);
    if (!entry.texture || !hasSize)
        entry.texture = textureFor(*picture, hasLevels);
    entry.width = picture->width;
    entry.height = picture->height;
    entry.isFine = hasNormals(*picture);
    if (use != PictureUse::data && !entry.isFine && holes.isIn(picture))
        upload(entry.texture, premultiplied(*picture), hasLevels);
    else
        upload(entry.texture, *picture, hasLevels);
    return entry.texture.name();
}

TextureHandle TextureStore::textureFor(const Image& picture, bool hasLevels) {
    const auto fits = [&](const Spare& spare) {
        return spare.width == picture.width && spare.height == picture.height &&
               spare.hasLevels == hasLevels && !hasNormals(picture);
    };
    const auto found = std::ranges::find_if(spares, fits);
    if (found == spares.end())
        return makePictureTexture(picture, hasLevels);
    TextureHandle texture = std::move(found->texture);
    spares.erase(found);
    return texture;
}

std::uint32_t TextureStore::cube(const scene::CubeImages& faces) {
    bool isSame = static_cast<bool>(cubeTexture);
    int side = 1;
    for (std::size_t i = 0; i < faces.size(); ++i) {
        isSame = isSame && cubeFaces.at(i).lock() == faces.at(i);
        if (faces.at(i))
            side = std::max({side, faces.at(i)->width, faces.at(i)->height});
    }
    if (isSame)
        return cubeTexture.name();
    cubeTexture = makeTexture(GL_TEXTURE_CUBE_MAP);
    glTextureStorage2D(cubeTexture.name(), 1, GL_RGBA8, side, side);
    for (std::size_t i = 0; i < faces.size(); ++i) {
        cubeFaces.at(i) = faces.at(i);
        const Image face =
            faces.at(i) ? resized(premultiplied(*faces.at(i)), side, side) : Image(side, side);
        glTextureSubImage3D(
            cubeTexture.name(),
            0,
            0,
            0,
            static_cast<GLint>(i),
            side,
            side,
            1,
            GL_RGBA,
            GL_UNSIGNED_BYTE,
            face.pixels.data());
    }
    return cubeTexture.name();
}

std::uint32_t TextureStore::probe(const std::shared_ptr<const LightProbe>& probe) {
    Kept<LightProbe>& entry = probes[probe.get()];
    if (entry.texture && !entry.owner.expired())
        return entry.texture.name();
    entry.owner = probe;
    entry.texture = makeTexture(GL_TEXTURE_2D_ARRAY);
    glTextureStorage3D(
        entry.texture.name(),
        1,
        // One word a texel: fast to read in software, and more precise than the eye can see.
        GL_RGB9_E5,
        LightProbe::kSide,
        LightProbe::kSide,
        LightProbe::kLevels);
    for (int level = 0; level < LightProbe::kLevels; ++level) {
        glTextureSubImage3D(
            entry.texture.name(),
            0,
            0,
            0,
            level,
            LightProbe::kSide,
            LightProbe::kSide,
            1,
            GL_RGB,
            GL_HALF_FLOAT,
            probe->specular.at(static_cast<std::size_t>(level)).data());
    }
    return entry.texture.name();
}

std::uint32_t TextureStore::white() {
    if (!whiteTexture) {
        Image pixel(1, 1);
        std::fill(pixel.pixels.begin(), pixel.pixels.end(), std::uint8_t{255});
        whiteTexture = makePictureTexture(pixel, false);
        upload(whiteTexture, pixel, false);
    }
    return whiteTexture.name();
}

std::uint32_t TextureStore::sampler(SCNWrapMode wrapS, SCNWrapMode wrapT) {
    SamplerHandle& sampler = samplers[{wrapS, wrapT}];
    if (!sampler) {
        // On the CPU each texture read is slow: read four texels of one level only.
        const GLint minify = device.isSoftware ? GL_LINEAR_MIPMAP_NEAREST : GL_LINEAR_MIPMAP_LINEAR;
        sampler = makeSampler(wrapOf(wrapS), wrapOf(wrapT), minify);
        if (device.maxAnisotropy > 1) {
            glSamplerParameterf(
                sampler.name(),
                GL_TEXTURE_MAX_ANISOTROPY_EXT,
                std::min(kMaxAnisotropy, device.maxAnisotropy));
        }
    }
    return sampler.name();
}

std::uint32_t TextureStore::smoothSampler() {
    if (!smooth)
        smooth = makeSampler(GL_CLAMP_TO_EDGE, GL_CLAMP_TO_EDGE, GL_LINEAR);
    return smooth.name();
}

std::uint32_t TextureStore::backdropSampler() {
    if (!backdrop)
        backdrop = makeSampler(GL_REPEAT, GL_CLAMP_TO_EDGE, GL_LINEAR);
    return backdrop.name();
}

std::uint32_t TextureStore::shadowSampler() {
    if (!shadow) {
        shadow = makeSampler(GL_CLAMP_TO_EDGE, GL_CLAMP_TO_EDGE, GL_LINEAR_MIPMAP_NEAREST);
    }
    return shadow.name();
}

bool TextureStore::prune() {
    for (Spare& spare : spares)
        ++spare.age;
    const bool droppedSpares =
        std::erase_if(spares, [](const Spare& spare) { return spare.age > kSpareFrames; }) > 0;
    spareExpiredPictures();
    const bool droppedProbes = dropExpired(probes);
    return droppedSpares || droppedProbes;
}

void TextureStore::spareExpiredPictures() {
    for (auto entry = pictures.begin(); entry != pictures.end();) {
        KeptPicture& kept = entry->second;
        if (!kept.owner.expired()) {
            ++entry;
            continue;
        }
        const bool hasLevels = entry->first.second != PictureUse::backdrop;
        // Videos need spares; they have no normals.
        if (!kept.isFine)
            spares.push_back({std::move(kept.texture), kept.width, kept.height, hasLevels});
        entry = pictures.erase(entry);
    }
}

} // namespace zelvo::render
