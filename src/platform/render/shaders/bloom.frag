// The steps of BloomPass: BRIGHT keeps the light that is brighter than white, in a small picture;
// SHRINK halves a picture; GROW doubles one and adds it to the next larger.
layout(location = 0) out vec4 oColor;

#ifdef BRIGHT
#if SAMPLES > 1
layout(binding = UNIT_PICTURE) uniform usampler2DMS uPicture; // see RenderTarget::bits
#else
layout(binding = UNIT_PICTURE) uniform sampler2D uPicture;
#endif

// Light above white, at most as much as four times white, so that one tiny highlight does not
// flash.
vec3 excess(ivec2 p, int i) {
#if SAMPLES > 1
    uvec2 bits = texelFetch(uPicture, min(p, textureSize(uPicture) - 1), i).xy;
    vec3 c = vec3(unpackHalf2x16(bits.x), unpackHalf2x16(bits.y).x);
#else
    vec3 c = texelFetch(uPicture, min(p, textureSize(uPicture, 0) - 1), 0).rgb;
#endif
    float peak = max(c.r, max(c.g, c.b));
    return max(c, vec3(0.0)) * (clamp(peak - 1.0, 0.0, 4.0) / max(peak, 1e-3));
}

// Eight of the sixteen pixels, as on a chessboard. From each row one sample is read, as they lie far
// apart in memory. The third one of the upper rows and the fourth one of the lower rows are spread
// evenly from left to right.
void main() {
    ivec2 first = ivec2(gl_FragCoord.xy) * 4;
    vec3 sum = vec3(0.0);
    for (int y = 0; y < 4; ++y) {
        sum += excess(first + ivec2(y & 1, y), 2 + y / 2);
        sum += excess(first + ivec2(2 + (y & 1), y), 2 + y / 2);
    }
    oColor = vec4(sum * 0.125, 1.0);
}

#else
layout(binding = UNIT_PICTURE) uniform sampler2D uPicture;
vec3 at(vec2 offset) { return textureLod(uPicture, (gl_FragCoord.xy + offset) / passFrame.yz, 0.0).rgb; }

// Four bilinear samples each: Bjorge 2015, "Bandwidth-Efficient Rendering" (dual filtering).
#ifdef SHRINK
void main() { oColor = vec4(0.25 * (at(vec2(-0.5)) + at(vec2(0.5, -0.5)) + at(vec2(-0.5, 0.5)) + at(vec2(0.5))), 1.0); }
#else
layout(binding = UNIT_GLOW) uniform sampler2D uNext;

void main() {
    vec3 blurred = 0.25 * (at(vec2(-1.0)) + at(vec2(1.0, -1.0)) + at(vec2(-1.0, 1.0)) + at(vec2(1.0)));
    oColor = vec4(blurred + texelFetch(uNext, ivec2(gl_FragCoord.xy), 0).rgb, 1.0);
}
#endif
#endif
