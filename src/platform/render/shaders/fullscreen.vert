// One triangle over the whole target. Techniques use it as simpleVertexShader, too.
#ifdef DIRECTIONS
layout(location = 0) out vec3 vDirection; // from the eye through the pixel, in the world
#endif

void main() {
    vec2 corner = vec2(float(gl_VertexID & 1) * 4.0 - 1.0, float(gl_VertexID >> 1) * 4.0 - 1.0);
    gl_Position = vec4(corner, 0.0, 1.0);
#ifdef DIRECTIONS
    vDirection = (passDirections * vec4(corner, 0.0, 1.0)).xyz;
#endif
}
