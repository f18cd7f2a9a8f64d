// Looks up what shade.frag has drawn at half the size. Of the four places around the pixel, those at
// another distance belong to another surface and hardly count.
layout(binding = UNIT_SHADE) uniform sampler2D uShade;

vec3 shadeAround() {
    vec2 at = gl_FragCoord.xy * 0.5 - 0.5;
    ivec2 first = ivec2(floor(at));
    ivec2 last = textureSize(uShade, 0) - 1;
    vec2 part = at - vec2(first);
    vec4 sum = vec4(0.0);
    for (int i = 0; i < 4; ++i) {
        ivec2 corner = ivec2(i & 1, i >> 1);
        vec4 place = texelFetch(uShade, clamp(first + corner, ivec2(0), last), 0);
        vec2 share = mix(1.0 - part, part, vec2(corner));
        float other = abs(place.a * gl_FragCoord.w - 1.0);
        sum += vec4(place.rgb, 1.0) * (share.x * share.y * max(1.0 - 10.0 * other, 0.001));
    }
    return sum.rgb / sum.w;
}
