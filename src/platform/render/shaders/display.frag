// Turns the light of the drawn scene into a picture: tone map, samples to pixels, encoding, dither.
#include "display.glsl"

#if SAMPLES > 1
bool isAtEdge(ivec2 here) {
    uvec2 first = texelFetch(uPicture, here, 0).xy;
    bool isEdge = false;
    for (int i = 1; i < SAMPLES; ++i)
        isEdge = isEdge || texelFetch(uPicture, here, i).xy != first;
    return isEdge;
}

vec4 lightAt(ivec2 pixel, int i) { return sampleAt(pixel, i); }
#else
vec4 lightAt(ivec2 pixel, int i) { return texelFetch(uPicture, pixel, 0); }
bool isAtEdge(ivec2 here) { return false; }
#endif

void main() {
    ivec2 here = ivec2(gl_FragCoord.xy);
    vec4 glow = glowHere();
    // Each sample is tone mapped, so that the edges of bright things are smooth, too. Where all samples
    // are the same, one is enough. The condition stands at the end: see docs/rendering.md.
    int count = isAtEdge(here) ? SAMPLES : 1;
    vec4 sum = vec4(0.0);
    int i = 0;
    do {
        vec4 light = lightAt(here, i);
        sum += vec4(shown(light + glow), light.a);
    } while (++i < count);
    vec4 mean = sum / float(count);
    oColor = displayed(mean.rgb, mean.a);
}
