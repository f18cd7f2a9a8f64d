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

vec3 lightsAt(Shading s, float ambientOcclusion) {
    vec3 sum = ambient.rgb * s.albedo * ambientOcclusion;
#if DIRECTIONAL_COUNT > 0
    for (int i = 0; i < DIRECTIONAL_COUNT; ++i) {
        sum += directionalLight(s, i, i < DIRECTIONAL_SHADOWS ? i : -1);
    }
#endif
#if OMNI_COUNT > 0
    for (int i = 0; i < OMNI_COUNT; ++i) sum += omniLight(s, DIRECTIONAL_COUNT + i);
#endif
#if SPOT_COUNT > 0
    for (int i = 0; i < SPOT_COUNT; ++i) {
        sum += spotLight(s, DIRECTIONAL_COUNT + OMNI_COUNT + i, i < SPOT_SHADOWS ? DIRECTIONAL_SHADOWS + i : -1);
    }
#endif
    return sum;
}
