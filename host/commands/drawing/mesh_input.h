#pragma once

#include "host/commands/drawing/drawing_prompts.h"
#include "host/geom/mesh_shapes.h"

#include <optional>

// What each body is asked for. Nothing when cancelled.
namespace host {

std::optional<MeshShape> askBoxMesh();
std::optional<MeshShape> askWedgeMesh();
std::optional<MeshShape> askConeMesh();
std::optional<MeshShape> askCylinderMesh();
std::optional<MeshShape> askPyramidMesh();
std::optional<MeshShape> askSphereMesh();
std::optional<MeshShape> askTorusMesh();

// How far a body goes up from its base, and in which direction.
struct Rise {
    AcGeVector3d axis = AcGeVector3d::kZAxis; // of length 1
    double height = 0.0;
    double topRadius = 0.0;
};
// With the options 2Point and, where the text offers them, Axis endpoint and Top radius.
std::optional<Rise> askRise(const AcGePoint3d& base, const std::wstring& text,
                            const wchar_t* keywords);

} // namespace host
