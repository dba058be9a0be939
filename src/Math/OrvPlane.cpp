#include "OrvPlane.h"

OrvPlane::OrvPlane() : m_distance(0.0f), m_normal(0.0f, 0.0f, 0.0f) {}

OrvPlane::OrvPlane(float distance, const OrvVector3D& normal) : m_distance(distance), m_normal(normal) {}

OrvPlane::~OrvPlane() = default;
