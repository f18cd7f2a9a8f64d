// The surface as given by its material's slots, before the modifier and the lighting.
layout(binding = UNIT_DIFFUSE) uniform sampler2D u_diffuseTexture;
layout(binding = UNIT_SPECULAR) uniform sampler2D u_specularTexture;
layout(binding = UNIT_EMISSION) uniform sampler2D u_emissionTexture;
layout(binding = UNIT_TRANSPARENT) uniform sampler2D uTransparent;
layout(binding = UNIT_REFLECTIVE) uniform sampler2D uReflective;
layout(binding = UNIT_MULTIPLY) uniform sampler2D uMultiply;
layout(binding = UNIT_NORMAL) uniform sampler2D uNormal;
layout(binding = UNIT_AMBIENT_OCCLUSION) uniform sampler2D uAmbientOcclusion;
layout(binding = UNIT_SELF_ILLUMINATION) uniform sampler2D uSelfIllumination;
layout(binding = UNIT_METALNESS) uniform sampler2D uMetalness;
layout(binding = UNIT_ROUGHNESS) uniform sampler2D uRoughness;

struct Surface {
    vec4 diffuse; // linear, straight alpha
    vec4 emission;
    vec4 specular;
    vec3 normal;
    vec3 multiplied;
    vec3 selfIllumination;
    float roughness;
    float metalness;
    float ambientOcclusion;
    float opacity;
    vec2 diffuseTexcoord;
};

#ifdef HAS_TEXCOORD
vec2 texcoord(int slot) {
#ifdef SLOT_TRANSFORMS
    return (slotTransform[slot] * vec4(vTexcoord, 0.0, 1.0)).xy;
#else
    return vTexcoord;
#endif
}
#endif

// Undoes premultiplication. Pictures with transparent pixels are premultiplied for filtering.
vec4 straight(vec4 texel) {
    return vec4(texel.rgb / max(texel.a, 1.0 / 255.0), texel.a);
}

// The normal of the shape itself, without the relief of a picture.
vec3 shapeNormal() {
    vec3 N = normalize(vNormal);
#ifdef DOUBLE_SIDED
    N = gl_FrontFacing ? N : -N;
#endif
    return N;
}

vec3 shadingNormal() {
    vec3 N = shapeNormal();
#ifdef HAS_NORMAL_PICTURE
    vec3 T = normalize(vTangent.xyz - N * dot(N, vTangent.xyz));
    vec3 B = cross(T, N) * vTangent.w; // up in the picture, against growing v
    // z follows from the other two, as fine pictures have only these.
    vec2 n = texture(uNormal, texcoord(UNIT_NORMAL)).xy * 2.0 - 1.0;
    float z = sqrt(max(1.0 - dot(n, n), 0.0025));
    n *= emission.w;
    N = normalize(T * n.x + B * n.y + N * z);
#endif
    return N;
}

float slotOpacity() {
    float opacity = diffuse.a;
#ifdef HAS_TRANSPARENT_PICTURE
    vec4 texel = texture(uTransparent, texcoord(UNIT_TRANSPARENT));
#ifdef TRANSPARENT_RGB_ZERO
    opacity *= 1.0 - factors.w * dot(linearFromSRGB(texel.rgb), vec3(0.2126, 0.7152, 0.0722));
#else
    opacity *= mix(1.0, texel.a, factors.w);
#endif
#endif
    return opacity;
}

Surface sampledSurface() {
    Surface s;
    s.diffuseTexcoord = vec2(0.0);
#ifdef HAS_TEXCOORD
    s.diffuseTexcoord = texcoord(UNIT_DIFFUSE);
#endif
    s.opacity = slotOpacity();
    s.diffuse = vec4(diffuse.rgb, 1.0);
#ifdef HAS_DIFFUSE_PICTURE
    vec4 texel = texture(u_diffuseTexture, s.diffuseTexcoord);
#ifdef DIFFUSE_HAS_HOLES
    texel = straight(texel);
#endif
    s.diffuse *= vec4(linearFromSRGB(texel.rgb), texel.a);
#endif
#ifdef HAS_VERTEX_COLORS
    s.diffuse *= vColor;
#endif
    s.emission = vec4(emission.rgb, 1.0);
#ifdef HAS_EMISSION_PICTURE
    s.emission.rgb *= linearFromSRGB(texture(u_emissionTexture, texcoord(UNIT_EMISSION)).rgb);
#endif
    s.specular = vec4(specular.rgb, 1.0);
#ifdef HAS_SPECULAR_PICTURE
    s.specular.rgb *= linearFromSRGB(texture(u_specularTexture, texcoord(UNIT_SPECULAR)).rgb);
#endif
    s.multiplied = multiply.rgb;
#ifdef HAS_MULTIPLY_PICTURE
    s.multiplied *= linearFromSRGB(texture(uMultiply, texcoord(UNIT_MULTIPLY)).rgb);
#endif
    s.selfIllumination = selfIllumination.rgb;
#ifdef HAS_SELF_ILLUMINATION_PICTURE
    s.selfIllumination *= linearFromSRGB(texture(uSelfIllumination, texcoord(UNIT_SELF_ILLUMINATION)).rgb);
#endif
    s.roughness = factors.x;
#ifdef HAS_ROUGHNESS_PICTURE
    s.roughness *= texture(uRoughness, texcoord(UNIT_ROUGHNESS)).r;
#endif
    s.metalness = factors.y;
#ifdef HAS_METALNESS_PICTURE
    s.metalness *= texture(uMetalness, texcoord(UNIT_METALNESS)).r;
#endif
    s.ambientOcclusion = factors.z;
#ifdef HAS_AMBIENT_OCCLUSION_PICTURE
    s.ambientOcclusion = mix(1.0, texture(uAmbientOcclusion, texcoord(UNIT_AMBIENT_OCCLUSION)).r, factors.z);
#endif
    s.normal = shadingNormal();
    return s;
}
