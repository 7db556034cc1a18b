#include "host/commands/drawing/mesh_command.h"

#include "host/commands/command_entities.h"
#include "host/commands/drawing/mesh_input.h"
#include "host/commands/drawing/new_entity.h"
#include "host/db/sub_d_mesh.h"
#include "host/edit/command_engine.h"

// Meshes are made unsmoothed. Escape at any of the prompts leaves nothing.

namespace host {

namespace {

struct Body {
    const wchar_t* keyword;
    std::optional<MeshShape> (*ask)();
};
constexpr Body kBodies[] = {{L"Box", askBoxMesh},           {L"Cone", askConeMesh},
                            {L"CYlinder", askCylinderMesh}, {L"Pyramid", askPyramidMesh},
                            {L"Sphere", askSphereMesh},     {L"Wedge", askWedgeMesh},
                            {L"Torus", askTorusMesh}};

} // namespace

void meshCommand()
{
    if (!documentOfCommand())
        return;
    engine().printForPrompt(L"Current smoothness level is set to: 0\n");
    const Answered<int> answer =
        askOption(L"Enter an option [Box/Cone/CYlinder/Pyramid/Sphere/Wedge/Torus] <Box>: ",
                  L"Box Cone CYlinder Pyramid Sphere Wedge Torus", L"Box");
    for (const Body& body : kBodies) {
        if (!answer.chose(body.keyword))
            continue;
        const std::optional<MeshShape> shape = body.ask();
        if (!shape)
            return;
        if (shape->faces.empty()) {
            refuse(L"The body is larger than numbers reach.\n");
            return;
        }
        auto mesh = std::make_unique<AcDbSubDMesh>();
        mesh->setSubDMesh(shape->vertices, shape->faces);
        appendNew(std::move(mesh));
        return;
    }
}

} // namespace host
