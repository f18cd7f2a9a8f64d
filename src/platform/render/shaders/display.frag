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
#endif

void main() {
    ivec2 here = ivec2(gl_FragCoord.xy);
#if SAMPLES > 1
    vec4 first = sampleAt(here, 0);
#else
    vec4 first = texelFetch(uPicture, here, 0);
#endif
    vec4 glow = glowHere();
    vec3 color = shown(first + glow);
    float ofScene = first.a;
#if SAMPLES > 1
    // Each sample is tone mapped, so that the edges of bright things are smooth, too. A loop without
    // rounds is skipped, in software, too.
    int count = isAtEdge(here) ? SAMPLES : 0;
    if (count > 0) {
        color = vec3(0.0);
        ofScene = 0.0;
    }
    const float share = 1.0 / float(SAMPLES);
    for (int i = 0; i < count; ++i) {
        vec4 light = sampleAt(here, i);
        color += share * shown(light + glow);
        ofScene += share * light.a;
    }
#endif
    oColor = displayed(color, ofScene);
}
