// A square for each particle, given by its middle and two half sides in the world.
layout(location = 0) in vec3 aMiddle;
layout(location = 1) in vec3 aRight;
layout(location = 2) in vec3 aUp;
layout(location = 3) in float aLift;
layout(location = 4) in vec4 aColor;

layout(location = 0) out vec2 vTexcoord;
layout(location = 1) flat out vec4 vColor;

void main() {
    vec2 corner = vec2(gl_VertexID & 1, gl_VertexID >> 1) * 2.0 - 1.0;
    vTexcoord = vec2(corner.x, -corner.y) * 0.5 + 0.5;
    vColor = aColor;
    vec3 place = aMiddle + aRight * corner.x + aUp * corner.y;
    gl_Position = viewProjection * vec4(place, 1.0);
    vec4 lifted = viewProjection * vec4(place + normalize(cameraPosition.xyz - aMiddle) * aLift, 1.0);
    gl_Position.z = lifted.z / lifted.w * gl_Position.w;
}
