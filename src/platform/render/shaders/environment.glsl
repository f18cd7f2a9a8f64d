// Image-based light from image::LightProbe (Karis 2013, "Real Shading in Unreal Engine 4": split
// sum).
layout(binding = UNIT_PROBE) uniform sampler2DArray uProbe;

const float kProbeInner = 128.0; // texels of a side, without the border
const float kProbeSide = 130.0;
const float kProbeLevels = 7.0;

vec3 prefiltered(vec3 direction, float roughness) {
    vec2 uv = (octahedral(direction) * kProbeInner + 1.0) / kProbeSide;
    float level = roughness * (kProbeLevels - 1.0);
    float lower = floor(level);
    vec3 a = textureLod(uProbe, vec3(uv, lower), 0.0).rgb;
    vec3 b = textureLod(uProbe, vec3(uv, min(lower + 1.0, kProbeLevels - 1.0)), 0.0).rgb;
    return mix(a, b, level - lower);
}

vec3 environmentAt(Shading s, vec2 fit, float ambientOcclusion) {
    vec3 R = reflect(-s.V, s.N);
    // with the fit's own sum, so that an evenly lit room stays even
    vec3 energy = 1.0 + s.f0 * (1.0 / (fit.x + fit.y) - 1.0);
    vec3 specularPart = prefiltered(R, s.roughness) * (s.f0 * fit.x + fit.y) * energy;
#ifdef HAS_RELIEF
    // A ray that goes into the shape meets it again instead of the room.
    float above = clamp(1.0 + 1.5 * dot(R, s.shapeN), 0.0, 1.0);
    specularPart *= above * above;
#endif
#ifdef VERTEX_IRRADIANCE
    vec3 irradianceHere = vIrradiance;
#else
    vec3 irradianceHere = irradianceAt(s.N);
#endif
    vec3 light = irradianceHere * s.albedo + specularPart;
#ifdef CLEAR_COAT
    float share = coatShare(clamp(dot(s.coatN, s.V), 0.0, 1.0));
    light = mix(light, prefiltered(reflect(-s.V, s.coatN), sqrt(s.coatAlpha)), share);
#endif
    return light * (ambientOcclusion * frame.z);
}
