// Diffuse light from the environment. It changes slowly over a surface, so it is computed at the
// vertices where possible: there are far fewer vertices than pixels.
#if defined(LIT) && defined(HAS_ENVIRONMENT) && !defined(HAS_NORMAL_PICTURE) && !defined(HAS_MODIFIER) \
    && !defined(DOUBLE_SIDED)
#define VERTEX_IRRADIANCE
#endif

// Ramamoorthi and Hanrahan 2001, "An Efficient Representation for Irradiance Environment Maps".
vec3 irradianceAt(vec3 n) {
    return max(
        irradiance[0].rgb + irradiance[1].rgb * n.y + irradiance[2].rgb * n.z + irradiance[3].rgb * n.x
            + irradiance[4].rgb * (n.x * n.y) + irradiance[5].rgb * (n.y * n.z)
            + irradiance[6].rgb * (3.0 * n.z * n.z - 1.0) + irradiance[7].rgb * (n.x * n.z)
            + irradiance[8].rgb * (n.x * n.x - n.y * n.y),
        vec3(0.0));
}
