// Shadow maps, filtered by four bilinear comparisons, one texel off the middle each way: together
// a soft edge of four texels without steps.
layout(binding = UNIT_SHADOW) uniform sampler2DShadow uShadowMaps[MAX_SHADOWS];

float tap(int map, vec3 at, float x, float y) {
    return textureLod(uShadowMaps[map], vec3(at.x + x, at.y + y, at.z), 0.0);
}

// The share of light that arrives, 0 to 1.
float shadowAt(int light, int map, vec3 N, vec3 L) {
    vec4 settings = lightShadow[light];
    // Off the surface by as much as the taps reach, the more the more the light grazes it.
    float NoL = clamp(dot(N, L), 0.0, 1.0);
    vec4 p = shadowMatrix[light] * vec4(vPosition + N * (settings.w * sqrt(1.0 - NoL * NoL)), 1.0);
    p.xyz /= p.w;
    vec4 bounds = shadowBounds[light];
    bool isInside = p.w > 0.0 && all(greaterThan(p.xy, bounds.xy)) && all(lessThan(p.xy, bounds.zw));
    // Four taps without a branch: in software, going around them costs more than taking them.
    vec3 middle = vec3(p.xy, max(p.z, 0.0));
    float reach = settings.y;
    float share = 0.25 * (tap(map, middle, -reach, -reach) + tap(map, middle, reach, -reach)
        + tap(map, middle, -reach, reach) + tap(map, middle, reach, reach));
    return isInside ? 1.0 - settings.x * (1.0 - share) : 1.0;
}
