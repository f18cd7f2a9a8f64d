// The colour of a surface: slots, modifier, lighting.
layout(location = 0) in vec3 vPosition;
layout(location = 1) in vec3 vNormal;
#ifdef HAS_NORMAL_PICTURE
layout(location = 2) in vec4 vTangent;
#endif
#ifdef HAS_TEXCOORD
layout(location = 3) in vec2 vTexcoord;
#endif
#include "irradiance.glsl"
#ifdef VERTEX_IRRADIANCE
layout(location = 4) in vec3 vIrradiance;
#endif
#ifdef HAS_VERTEX_COLORS
layout(location = 5) in vec4 vColor;
#endif
#ifdef HAS_OPENNESS
layout(location = 6) in float vOpenness; // see geometry/WallOpenness.h
#endif
layout(location = 0) out vec4 oColor;

#include "color.glsl"
#include "slots.glsl"
#include "brdf.glsl"
#include "directions.glsl"
#ifdef LIT
#if DIRECTIONAL_SHADOWS + SPOT_SHADOWS > 0
#include "shadows.glsl"
#else
float shadowAt(int light, int map, vec3 N, vec3 L) { return 1.0; }
#endif
#include "lights.glsl"
#ifdef HAS_ENVIRONMENT
#include "environment.glsl"
#endif
#endif

#ifdef HAS_MODIFIER
#define texture2D texture
#define u_time frame.x
void modifySurface(inout Surface _surface) {
#include "MODIFIER"
}
#undef u_time
#endif

#ifdef LIT
const float kMetalWhite = 0.12;
#ifdef HAS_OPENNESS
const float kStoppedByWalls = 0.45;
#endif

vec3 litColor(Surface surface) {
    Shading s;
    s.N = surface.normal;
    s.shapeN = shapeNormal();
    s.coatN = normalize(mix(s.shapeN, s.N, selfIllumination.w));
    s.openness = 2.0 * surface.ambientOcclusion * surface.ambientOcclusion - 1.0;
#ifdef HAS_OPENNESS
    surface.ambientOcclusion *= vOpenness;
#endif
    s.V = normalize(cameraPosition.xyz - vPosition);
    s.NoV = clamp(dot(s.N, s.V), 1e-3, 1.0);
    float metalness = clamp(surface.metalness, 0.0, 1.0);
    vec3 base = surface.diffuse.rgb;
    // What is not metal on a metal is dirt and oxide, darker than the metal.
    s.albedo = base * ((1.0 - metalness) * (1.0 - 0.7 * metalness));
    // Each real metal reflects some of every colour. A colour as pure as a picker gives would look
    // like paint in the highlights.
    vec3 metal = mix(base, vec3(max(base.r, max(base.g, base.b))), kMetalWhite);
    s.f0 = mix(0.08 * surface.specular.rgb, metal, metalness);
#ifdef CLEAR_COAT
    s.f0 = mix(s.f0, reflectedBelowCoat(s.f0), multiply.w);
    s.coatAlpha = widenedAlpha(s.coatN, kCoatAlpha);
#endif
    float roughness = clamp(surface.roughness, 0.06, 1.0);
    s.alpha = widenedAlpha(s.N, roughness * roughness);
    s.roughness = sqrt(s.alpha);
    vec2 fit = environmentFit(s.roughness, s.NoV);
    s.energy = 1.0 + s.f0 * (1.0 / singleBounceEnergy(s.roughness, s.NoV) - 1.0);

    vec3 color = lightsAt(s, surface.ambientOcclusion, true);
#ifdef HAS_OPENNESS
    // Walls also stop lamps, but where each lamp stands is not known here.
    color *= mix(1.0, vOpenness, kStoppedByWalls);
#endif
#ifdef HAS_ENVIRONMENT
    color += environmentAt(s, fit, surface.ambientOcclusion);
#endif
    return color + base * surface.selfIllumination;
}
#else
vec3 litColor(Surface surface) { return surface.diffuse.rgb + surface.selfIllumination * surface.diffuse.rgb; }
#endif

vec3 shadedColor(Surface surface) {
    vec3 color = litColor(surface) + surface.emission.rgb;
#ifdef HAS_REFLECTIVE_PICTURE
    vec3 R = reflect(normalize(vPosition - cameraPosition.xyz), surface.normal);
    // The mipmaps' blur stands for that of a rough mirror.
    float blur = 3.0 * surface.roughness;
    color += linearFromSRGB(texture(uReflective, equirectangularWithoutSeam(R), blur).rgb) * specular.w;
#endif
    return color * surface.multiplied;
}

void main() {
    Surface surface = sampledSurface();
    float alpha = clamp(surface.opacity * surface.diffuse.a, 0.0, 1.0);
#ifdef CUT_OUT
    // The share of the pixel's samples that is drawn: the line where the opacity is a half is
    // smooth.
    float above = alpha - 0.5 * diffuse.a;
    float covered = clamp(above / max(fwidth(alpha), 1e-3) + 0.5, 0.0, 1.0);
    alpha = diffuse.a;
#endif
#ifdef HAS_MODIFIER
    surface.normal = mat3(view) * surface.normal;
    modifySurface(surface);
    surface.normal = normalize(surface.normal * mat3(view));
#endif
    vec3 color = shadedColor(surface);
#ifdef LIT
    color *= frame.y;
#endif
    color = clamp(color, vec3(0.0), vec3(kBrightest));
#ifdef MULTIPLY_BLEND
    oColor = vec4(mix(vec3(1.0), color, alpha), 1.0);
#elif defined(GLOW)
    // On black, a picture of a glow looks as it was drawn: its opacity is an encoded brightness.
    oColor = vec4(color * linearFromSRGB(vec3(alpha)), alpha);
#elif defined(TRANSLUCENT)
    oColor = vec4(color * alpha, alpha);
#elif defined(SCENE_LIGHT)
    oColor = vec4(color, 1.0);
#else
    oColor = vec4(color, 0.0);
#endif
#ifdef CUT_OUT
    // At the end, because lookups above need the neighbouring pixels.
    int count = int(covered * frame.w + 0.5);
    if (count == 0) discard;
    gl_SampleMask[0] = (1 << count) - 1;
#endif
}
