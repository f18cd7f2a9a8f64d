// Shadow maps, filtered by a square of bilinear comparisons.
layout(binding = UNIT_SHADOW) uniform sampler2DShadow uShadowMaps[MAX_SHADOWS];

// The share of light that arrives, 0 to 1. Where the map has nothing, the loop runs for no tap at all.
float shadowAt(int light, int map, vec3 N, vec3 L) {
    vec4 settings = lightShadow[light];
    // Off the surface by as much as the taps reach, the more the more the light grazes it.
    float NoL = clamp(dot(N, L), 0.0, 1.0);
    vec4 p = shadowMatrix[light] * vec4(vPosition + N * (settings.w * sqrt(1.0 - NoL * NoL)), 1.0);
    p.xyz /= p.w;
    bool isInside = p.w > 0.0 && all(greaterThan(p.xy, vec2(0.0))) && all(lessThan(p.xy, vec2(1.0)));
    float side = isInside ? settings.z : 0.0;
    vec2 first = p.xy - 0.5 * (side - 1.0) * settings.y;
    float lit = 0.0;
    for (float y = 0.0; y < side; y += 1.0) {
        for (float x = 0.0; x < side; x += 1.0) {
            lit += textureLod(uShadowMaps[map], vec3(first + vec2(x, y) * settings.y, max(p.z, 0.0)), 0.0);
        }
    }
    return isInside ? 1.0 - settings.x * (1.0 - lit / (side * side)) : 1.0;
}
