#include "OrvVertex.h"

OrvVertex::OrvVertex() : m_position(0.0f, 0.0f, 0.0f), m_uv(0.0f, 0.0f), m_normal(0.0f, 1.0f, 0.0f) {}

OrvVertex::OrvVertex(OrvVector3D position, OrvVector2D uv, OrvVector3D normal)
    : m_position(position), m_uv(uv), m_normal(normal)
{
}

OrvVertex::~OrvVertex() = default;
