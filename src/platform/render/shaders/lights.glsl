// The lights of the scene. Their counts are known when the shader is built. Order: directional,
// omni, spot; in each kind, first those that cast shadows.

#if DIRECTIONAL_COUNT > 0
vec3 directionalLight(Shading s, int i, int map) {
    vec3 L = lightPosition[i].xyz;
    vec3 light = lightColor[i].rgb;
    if (map >= 0) light *= shadowAt(i, map, s.N, L);
    return light * reflected(s, L);
}
#endif

#if OMNI_COUNT > 0
vec3 omniLight(Shading s, int i) {
    vec3 way = lightPosition[i].xyz - vPosition;
    float nearness = inversesqrt(max(dot(way, way), 1e-8));
    return lightColor[i].rgb * (nearness * nearness) * reflected(s, way * nearness);
}
#endif

#if SPOT_COUNT > 0
vec3 spotLight(Shading s, int i, int map) {
    vec3 way = lightPosition[i].xyz - vPosition;
    float nearness = inversesqrt(max(dot(way, way), 1e-8));
    vec3 L = way * nearness;
    float t = clamp(dot(lightAxis[i].xyz, -L) * lightAxis[i].w + lightColor[i].w, 0.0, 1.0);
    vec3 light = lightColor[i].rgb * (nearness * nearness * t * t * (3.0 - 2.0 * t));
    if (map >= 0) light *= shadowAt(i, map, s.N, L);
    return light * reflected(s, L);
}
#endif

// Lights with shadows are written out. In a loop over lights, the shadow map would be chosen while
// the program runs, and llvmpipe (Mesa 22.3) crashes when it builds that.
vec3 lightsAt(Shading s, float ambientOcclusion, bool hasShadows) {
    vec3 sum = ambient.rgb * s.albedo * ambientOcclusion;
#if DIRECTIONAL_SHADOWS > 0
    sum += directionalLight(s, 0, hasShadows ? 0 : -1);
#endif
#if DIRECTIONAL_SHADOWS > 1
    sum += directionalLight(s, 1, hasShadows ? 1 : -1);
#endif
#if DIRECTIONAL_SHADOWS > 2
    sum += directionalLight(s, 2, hasShadows ? 2 : -1);
#endif
#if DIRECTIONAL_SHADOWS > 3
    sum += directionalLight(s, 3, hasShadows ? 3 : -1);
#endif
#if DIRECTIONAL_COUNT > DIRECTIONAL_SHADOWS
    for (int i = DIRECTIONAL_SHADOWS; i < DIRECTIONAL_COUNT; ++i) sum += directionalLight(s, i, -1);
#endif
#if OMNI_COUNT > 0
    for (int i = 0; i < OMNI_COUNT; ++i) sum += omniLight(s, DIRECTIONAL_COUNT + i);
#endif
#define FIRST_SPOT (DIRECTIONAL_COUNT + OMNI_COUNT)
#if SPOT_SHADOWS > 0
    sum += spotLight(s, FIRST_SPOT, hasShadows ? DIRECTIONAL_SHADOWS : -1);
#endif
#if SPOT_SHADOWS > 1
    sum += spotLight(s, FIRST_SPOT + 1, hasShadows ? DIRECTIONAL_SHADOWS + 1 : -1);
#endif
#if SPOT_SHADOWS > 2
    sum += spotLight(s, FIRST_SPOT + 2, hasShadows ? DIRECTIONAL_SHADOWS + 2 : -1);
#endif
#if SPOT_SHADOWS > 3
    sum += spotLight(s, FIRST_SPOT + 3, hasShadows ? DIRECTIONAL_SHADOWS + 3 : -1);
#endif
#if SPOT_COUNT > SPOT_SHADOWS
    for (int i = SPOT_SHADOWS; i < SPOT_COUNT; ++i) sum += spotLight(s, FIRST_SPOT + i, -1);
#endif
    return sum;
}
