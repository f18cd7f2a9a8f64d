// Looks up what shade.frag has drawn in a smaller picture: effort.zw is its size over that of the whole.
// Of the four places around the pixel, those at another distance belong to another surface and
// hardly count.
layout(binding = UNIT_SHADE) uniform sampler2D uShade;

const float kSameSurface = 0.02; // as a share of the distance

vec3 takenByShadows() {
    vec2 at = gl_FragCoord.xy * effort.zw - 0.5;
    // A mean that is at the pixel's own distance is of one surface.
    vec4 mean = textureLod(uShade, (at + 0.5) / vec2(textureSize(uShade, 0)), 0.0);
    int count = abs(mean.a * gl_FragCoord.w - 1.0) < kSameSurface ? 0 : 4;
    vec4 sum = count == 0 ? vec4(mean.rgb, 1.0) : vec4(0.0);
    ivec2 first = ivec2(floor(at));
    ivec2 last = textureSize(uShade, 0) - 1;
    vec2 part = at - vec2(first);
    for (int i = 0; i < count; ++i) {
        ivec2 corner = ivec2(i & 1, i >> 1);
        vec4 place = texelFetch(uShade, clamp(first + corner, ivec2(0), last), 0);
        vec2 share = mix(1.0 - part, part, vec2(corner));
        float other = abs(place.a * gl_FragCoord.w - 1.0);
        sum += vec4(place.rgb, 1.0) * (share.x * share.y * max(1.0 - 10.0 * other, 0.001));
    }
    return sum.rgb / sum.w;
}
