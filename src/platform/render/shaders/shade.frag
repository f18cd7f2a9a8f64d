// How much darker shadows make a surface: the share of its light that they take away. Alpha is the
// distance along the view, for shade_apply.frag. Of the reflected light, only the matte part counts.
layout(location = 0) in vec3 vPosition;
layout(location = 1) in vec3 vNormal;
#ifdef HAS_TEXCOORD
layout(location = 3) in vec2 vTexcoord;
#endif
#include "irradiance.glsl"
#ifdef HAS_VERTEX_COLORS
layout(location = 5) in vec4 vColor;
#endif
layout(location = 0) out vec4 oTaken;

struct Shading {
    vec3 N;
    vec3 albedo;
};

vec3 reflected(Shading s, vec3 L) { return s.albedo * clamp(dot(s.N, L), 0.0, 1.0); }

#include "color.glsl"
#include "slots.glsl"
#include "shadows.glsl"
#include "lights.glsl"

void main() {
    Surface surface = sampledSurface();
    Shading s = Shading(surface.normal, surface.diffuse.rgb);
    vec3 all = lightsAt(s, 1.0, false);
    vec3 taken = all - lightsAt(s, 1.0, true);
#ifdef HAS_ENVIRONMENT
    all += irradianceAt(s.N) * s.albedo * frame.z;
#endif
    all += surface.emission.rgb + surface.diffuse.rgb * surface.selfIllumination;
#ifdef GREY
    const vec3 kBrightness = vec3(0.2126, 0.7152, 0.0722); // ITU-R BT.709
    vec3 share = vec3(dot(taken, kBrightness) / max(dot(all, kBrightness), 1e-4));
#else
    vec3 share = taken / max(all, 1e-4);
#endif
    oTaken = vec4(share, 1.0 / gl_FragCoord.w);
}
