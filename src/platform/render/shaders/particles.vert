// A square for each particle, given by its middle and two half sides in the world.
layout(location = 0) in vec3 aMiddle;
layout(location = 1) in vec3 aRight;
layout(location = 2) in vec3 aUp;
layout(location = 3) in float aRadius;
layout(location = 4) in vec4 aColor;

layout(location = 0) out vec2 vTexcoord;
layout(location = 1) flat out vec4 vColor;
layout(location = 2) flat out vec3 vLens; // depth to distance: y / (depth + x); z one over the ball's size
layout(location = 3) out float vFront;    // distance of the ball's front

void main() {
    vec2 corner = vec2(gl_VertexID & 1, gl_VertexID >> 1) * 2.0 - 1.0;
    vTexcoord = vec2(corner.x, -corner.y) * 0.5 + 0.5;
    vColor = aColor;
    vec3 place = aMiddle + aRight * corner.x + aUp * corner.y;
    gl_Position = viewProjection * vec4(place, 1.0);
    // The front of the ball is tested against the depth.
    vec4 front = viewProjection * vec4(place + normalize(cameraPosition.xyz - aMiddle) * aRadius, 1.0);
    gl_Position.z = front.z / front.w * gl_Position.w;
    vFront = front.w;
    // The projection's third row, found again in the product with the view.
    vec4 rowZ = vec4(viewProjection[0][2], viewProjection[1][2], viewProjection[2][2], viewProjection[3][2]);
    vec4 rowW = vec4(viewProjection[0][3], viewProjection[1][3], viewProjection[2][3], viewProjection[3][3]);
    float scale = -dot(rowZ.xyz, rowW.xyz);
    vLens = vec3(scale, rowZ.w + scale * rowW.w, 0.5 / max(aRadius, 1e-3));
}
