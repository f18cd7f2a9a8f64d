// Shadow maps. Four bilinear comparisons, each one texel from the middle, make a smooth soft edge
// of four texels.
layout(binding = UNIT_SHADOW) uniform sampler2DShadow uShadowMaps[MAX_SHADOWS];

float tap(int map, vec3 at, float x, float y) {
    return textureLod(uShadowMaps[map], vec3(at.x + x, at.y + y, at.z), 0.0);
}

// The share of light that arrives, 0 .. 1.
float shadowAt(int light, int map, vec3 N, vec3 L) {
    vec4 settings = lightShadow[light];
    // Moves the point off the surface against self-shadowing: by the reach of the samples, most
    // where the light is grazing.
    float NoL = clamp(dot(N, L), 0.0, 1.0);
    vec4 p = shadowMatrix[light] * vec4(vPosition + N * (settings.w * sqrt(1.0 - NoL * NoL)), 1.0);
    p.xyz /= p.w;
    vec4 bounds = shadowBounds[light];
    bool isInside = p.w > 0.0 && all(greaterThan(p.xy, bounds.xy)) && all(lessThan(p.xy, bounds.zw));
    // All four samples are always taken: in software, a branch would cost more.
    vec3 middle = vec3(p.xy, max(p.z, 0.0));
    float reach = settings.y;
    float share = 0.25 * (tap(map, middle, -reach, -reach) + tap(map, middle, reach, -reach)
        + tap(map, middle, -reach, reach) + tap(map, middle, reach, reach));
    return isInside ? 1.0 - settings.x * (1.0 - share) : 1.0;
}
