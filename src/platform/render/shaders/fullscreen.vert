// One triangle over the whole target; its direction is the way from the eye through the pixel, in the world.
layout(location = 0) out vec2 vScreen;
layout(location = 1) out vec3 vDirection;

void main() {
    vScreen = vec2(float(gl_VertexID & 1) * 2.0, float(gl_VertexID >> 1) * 2.0);
    vec2 corner = vScreen * 2.0 - 1.0;
    gl_Position = vec4(corner, 0.0, 1.0);
    // here viewProjection holds the way from clip space back to directions
    vDirection = (viewProjection * vec4(corner.x, corner.y, 0.0, 1.0)).xyz;
}
