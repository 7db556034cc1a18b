#include "host/commands/native_commands.h"

#include "host/commands/attsync_command.h"
#include "host/commands/drawing/arc_command.h"
#include "host/commands/drawing/circle_command.h"
#include "host/commands/drawing/copy_command.h"
#include "host/commands/drawing/dimension_commands.h"
#include "host/commands/drawing/ellipse_command.h"
#include "host/commands/drawing/explode_command.h"
#include "host/commands/drawing/face_command.h"
#include "host/commands/drawing/hatch_command.h"
#include "host/commands/drawing/line_command.h"
#include "host/commands/drawing/mesh_command.h"
#include "host/commands/drawing/mirror_command.h"
#include "host/commands/drawing/mleader_command.h"
#include "host/commands/drawing/mline_command.h"
#include "host/commands/drawing/move_command.h"
#include "host/commands/drawing/mpolygon_command.h"
#include "host/commands/drawing/pline_command.h"
#include "host/commands/drawing/point_command.h"
#include "host/commands/drawing/polyline3d_command.h"
#include "host/commands/drawing/ray_command.h"
#include "host/commands/drawing/rotate_command.h"
#include "host/commands/drawing/scale_command.h"
#include "host/commands/drawing/spline_command.h"
#include "host/commands/drawing/wipeout_command.h"
#include "host/commands/drawing/xline_command.h"
#include "host/commands/drawing_state_commands.h"
#include "host/commands/erase_command.h"
#include "host/commands/file_commands.h"
#include "host/commands/help_command.h"
#include "host/commands/insert_command.h"
#include "host/commands/layer_command.h"
#include "host/commands/list_command.h"
#include "host/commands/script_command.h"
#include "host/commands/selection_commands.h"
#include "host/commands/undo_commands.h"
#include "host/commands/variable_command.h"
#include "host/edit/command_stack.h"

namespace host {

namespace {

constexpr const wchar_t* kGroup = L"NATIVE";
constexpr int kKeepsPickFirst = ACRX_CMD_USEPICKSET | ACRX_CMD_REDRAW;

struct NativeCommand {
    const wchar_t* name;
    int flags;
    void (*run)();
};

constexpr NativeCommand kCommands[] = {
    {L"NEW", ACRX_CMD_MODAL, newCommand},
    {L"OPEN", ACRX_CMD_MODAL, openCommand},
    {L"QSAVE", kKeepsPickFirst, qsaveCommand},
    {L"SAVEAS", kKeepsPickFirst, saveasCommand},
    {L"CLOSE", ACRX_CMD_MODAL, closeCommand},
    {L"QUIT", ACRX_CMD_MODAL, quitCommand},

    {L"PSELECT", ACRX_CMD_REDRAW, pselectCommand},
    {L"SELECT", ACRX_CMD_USEPICKSET, selectCommand},
    {L"LIST", kKeepsPickFirst, listCommand},
    {L"U", ACRX_CMD_NO_UNDO_MARKER, uCommand},
    {L"UNDO", ACRX_CMD_NO_UNDO_MARKER, undoCommand},
    {L"REDO", ACRX_CMD_NO_UNDO_MARKER, redoCommand},
    {L"SCRIPT", kKeepsPickFirst, scriptCommand},
    {L"SETVAR", kKeepsPickFirst | ACRX_CMD_TRANSPARENT, setvarCommand},
    {L"-LAYER", kKeepsPickFirst, layerCommand},
    {L"LAYER", kKeepsPickFirst, layerCommand},
    {L"REGEN", kKeepsPickFirst | ACRX_CMD_TRANSPARENT, regenCommand},
    {L"AUDIT", kKeepsPickFirst, auditCommand},
    {L"HELP", kKeepsPickFirst | ACRX_CMD_TRANSPARENT, helpCommand},

    {L"ATTSYNC", kKeepsPickFirst, attsyncCommand},
    {L"COPY", ACRX_CMD_USEPICKSET, copyCommand},
    {L"ERASE", ACRX_CMD_USEPICKSET, eraseCommand},
    {L"EXPLODE", ACRX_CMD_USEPICKSET, explodeCommand},
    {L"MIRROR", ACRX_CMD_USEPICKSET, mirrorCommand},
    {L"MOVE", ACRX_CMD_USEPICKSET, moveCommand},
    {L"ROTATE", ACRX_CMD_USEPICKSET, rotateCommand},
    {L"SCALE", ACRX_CMD_USEPICKSET, scaleCommand},

    {L"3DFACE", ACRX_CMD_MODAL, faceCommand},
    {L"3DPOLY", ACRX_CMD_MODAL, polyline3dCommand},
    {L"ARC", ACRX_CMD_MODAL, arcCommand},
    {L"CIRCLE", ACRX_CMD_MODAL, circleCommand},
    {L"ELLIPSE", ACRX_CMD_MODAL, ellipseCommand},
    {L"-HATCH", ACRX_CMD_MODAL, hatchCommand},
    {L"-INSERT", ACRX_CMD_MODAL, insertCommand},
    {L"LINE", ACRX_CMD_MODAL, lineCommand},
    {L"MESH", ACRX_CMD_MODAL, meshCommand},
    {L"MLEADER", ACRX_CMD_MODAL, mleaderCommand},
    {L"MLINE", ACRX_CMD_MODAL, mlineCommand},
    {L"MPOLYGON", ACRX_CMD_MODAL, mpolygonCommand},
    {L"PLINE", ACRX_CMD_MODAL, plineCommand},
    {L"POINT", ACRX_CMD_MODAL, pointCommand},
    {L"RAY", ACRX_CMD_MODAL, rayCommand},
    {L"SPLINE", ACRX_CMD_MODAL, splineCommand},
    {L"WIPEOUT", ACRX_CMD_MODAL, wipeoutCommand},
    {L"XLINE", ACRX_CMD_MODAL, xlineCommand},

    {L"DIM", ACRX_CMD_MODAL, dimCommand},
    {L"DIMALIGNED", ACRX_CMD_MODAL, dimalignedCommand},
    {L"DIMANGULAR", ACRX_CMD_MODAL, dimangularCommand},
    {L"DIMARC", ACRX_CMD_MODAL, dimarcCommand},
    {L"DIMDIAMETER", ACRX_CMD_MODAL, dimdiameterCommand},
    {L"DIMJOGGED", ACRX_CMD_MODAL, dimjoggedCommand},
    {L"DIMLINEAR", ACRX_CMD_MODAL, dimlinearCommand},
    {L"DIMORDINATE", ACRX_CMD_MODAL, dimordinateCommand},
    {L"DIMRADIUS", ACRX_CMD_MODAL, dimradiusCommand},
};

} // namespace

void registerNativeCommands(AcEdCommandStack& stack)
{
    for (const NativeCommand& command : kCommands)
        stack.addCommand(kGroup, command.name, command.name, command.flags, command.run);
}

} // namespace host
