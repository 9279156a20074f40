// SPDX-License-Identifier: GPL-3.0-or-later
#version 440

layout(location = 0) in vec2 qt_TexCoord0;

layout(location = 0) out vec4 fragColor;

layout(binding = 1) uniform sampler2D yTexture;
layout(binding = 2) uniform sampler2D uTexture;
layout(binding = 3) uniform sampler2D vTexture;

// BT.601, limited range.
void main()
{
    float y = texture(yTexture, qt_TexCoord0).x;
    float u = texture(uTexture, qt_TexCoord0).x;
    float v = texture(vTexture, qt_TexCoord0).x;

    y = 1.1643 * (y - 0.0625);
    u -= 0.5;
    v -= 0.5;

    float r = y + 1.5958 * v;
    float g = y - 0.39173 * u - 0.8129 * v;
    float b = y + 2.017 * u;

    fragColor = vec4(r, g, b, 1.0);
}
