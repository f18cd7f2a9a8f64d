// The physically based surface model: Lambert and GGX, metallic-roughness.

struct Shading {
    vec3 N;
    vec3 V;
    float NoV;
    vec3 albedo;
    vec3 f0;
    float roughness; // perceptual
    float alpha; // roughness squared
    vec3 energy; // correction for light that is reflected more than once
    vec3 shapeN; // without the relief of a normal picture
    vec3 coatN; // of the clear coat
    float coatAlpha;
    float openness; // how far a hollow is open to lamps, 1 where there are no hollows
};

#if defined(HAS_NORMAL_PICTURE) || defined(HAS_MODIFIER)
#define HAS_RELIEF
#endif

// Karis 2014, "Physically Based Shading on Mobile": scale and bias of f0, an analytic fit of the
// second part of the split sum.
vec2 environmentFit(float roughness, float NoV) {
    const vec4 c0 = vec4(-1.0, -0.0275, -0.572, 0.022);
    const vec4 c1 = vec4(1.0, 0.0425, 1.04, -0.04);
    vec4 r = roughness * c0 + c1;
    float a004 = min(r.x * r.x, exp2(-9.28 * NoV)) * r.x + r.y;
    return vec2(-1.04, 1.04) * a004 + r.zw;
}

// How much a white mirror reflects at the first bounce: a fit of the numerically integrated lobe
// below. At grazing angles the fit is rather too high, which adds too little light rather than too
// much. The rest is added in the colour of f0 (Lagarde and Golubev 2018, "Simulating Multiple
// Scattering").
float singleBounceEnergy(float roughness, float NoV) {
    return 1.0 - roughness * roughness * (0.32 + 0.36 * NoV);
}

// Walter et al. 2007, "Microfacet Models for Refraction through Rough Surfaces" (GGX), times pi;
// Hammon 2017, "PBR Diffuse Lighting for GGX+Smith Microsurfaces": fit of the height-correlated Smith visibility;
// Schlick 1994, "An Inexpensive BRDF Model for Physically-based Rendering".
float distribution(float alpha, float NoL, float NoV, float NoH) {
    float a2 = alpha * alpha;
    float k = (NoH * a2 - NoH) * NoH + 1.0;
    // alpha is at least 0.0036, so the divisor stays above 1e-10 wherever NoL > 0
    return a2 * 0.5 / max(k * k * mix(2.0 * NoL * NoV, NoL + NoV, alpha), 1e-10);
}

float fresnelPower(float cosine) {
    float q = 1.0 - cosine;
    float q2 = q * q;
    return q2 * q2 * q;
}

vec3 specularLobe(Shading s, float NoL, float NoH, float LoH) {
    // A surface that reflects next to nothing from above does not from the side, either.
    float grazing = clamp(25.0 * max(s.f0.r, max(s.f0.g, s.f0.b)), 0.0, 1.0);
    vec3 F = s.f0 + (grazing - s.f0) * fresnelPower(LoH);
    return F * distribution(s.alpha, NoL, s.NoV, NoH);
}

#ifdef CLEAR_COAT
// A lacquer with the index of refraction 1.5. The smoother it is, the less it follows the relief below.
const float kCoatAlpha = 0.03;

float coatShare(float cosine) {
    return multiply.w * (0.04 + 0.96 * fresnelPower(cosine));
}

// Below the lacquer there is no air, so the step of the index of refraction is smaller: another
// lacquer or plastic reflects nothing there (Guy and Agopian 2018, "Physically Based Rendering in
// Filament": a fit for the index 1.5).
vec3 reflectedBelowCoat(vec3 f0) {
    return clamp(f0 * (f0 * (0.941892 - 0.263008 * f0) + 0.346479) - 0.0285998, 0.0, 1.0);
}

// What passes the lacquer is lit below it; the rest is reflected in the lamp's colour.
vec3 coated(Shading s, vec3 below, vec3 L, vec3 H, float LoH) {
    float NoL = clamp(dot(s.coatN, L), 0.0, 1.0);
    float NoV = clamp(dot(s.coatN, s.V), 1e-3, 1.0);
    float NoH = clamp(dot(s.coatN, H), 0.0, 1.0);
    float share = coatShare(LoH);
    return below * (1.0 - share) + share * NoL * distribution(s.coatAlpha, NoL, NoV, NoH);
}
#endif

// The light reflected to the eye, for irradiance 1 from L.
vec3 reflected(Shading s, vec3 L) {
    float NoL = clamp(dot(s.N, L), 0.0, 1.0);
    vec3 H = normalize(s.V + L);
    float NoH = clamp(dot(s.N, H), 0.0, 1.0);
    float LoH = clamp(dot(L, H), 0.0, 1.0);
#ifdef HAS_RELIEF
    // Light from behind the shape reaches no bump on it.
    NoL *= clamp(4.0 * dot(s.shapeN, L), 0.0, 1.0);
#endif
#ifdef HAS_AMBIENT_OCCLUSION_PICTURE
    // Chan 2018, "Material Advances in Call of Duty: WWII": what is occluded from most of the room is
    // reached only by steep light.
    NoL *= clamp(NoL + s.openness, 0.0, 1.0);
#endif
    vec3 light = NoL * (s.albedo + s.energy * specularLobe(s, NoL, NoH, LoH));
#ifdef CLEAR_COAT
    light = coated(s, light, L, H, LoH);
#endif
    return light;
}

// Tokuyoshi and Kaplanyan 2019, "Improved Geometric Specular Antialiasing". Where the normal
// changes within a pixel, the highlight is widened, so that narrow bevels do not sparkle.
float widenedAlpha(vec3 N, float alpha) {
    vec3 dx = dFdx(N);
    vec3 dy = dFdy(N);
    float kernel = min(0.5 * (dot(dx, dx) + dot(dy, dy)), 0.18);
    return sqrt(min(alpha * alpha + kernel, 1.0));
}
