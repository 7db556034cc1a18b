#include "host/commands/native_commands.h"

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
    {L"ERASE", ACRX_CMD_USEPICKSET, eraseCommand},
    {L"U", ACRX_CMD_NO_UNDO_MARKER, uCommand},
    {L"UNDO", ACRX_CMD_NO_UNDO_MARKER, undoCommand},
    {L"REDO", ACRX_CMD_NO_UNDO_MARKER, redoCommand},
    {L"SCRIPT", kKeepsPickFirst, scriptCommand},
    {L"SETVAR", kKeepsPickFirst | ACRX_CMD_TRANSPARENT, setvarCommand},
    {L"-INSERT", ACRX_CMD_MODAL, insertCommand},
    {L"-LAYER", kKeepsPickFirst, layerCommand},
    {L"LAYER", kKeepsPickFirst, layerCommand},
    {L"REGEN", kKeepsPickFirst | ACRX_CMD_TRANSPARENT, regenCommand},
    {L"AUDIT", kKeepsPickFirst, auditCommand},
    {L"HELP", kKeepsPickFirst | ACRX_CMD_TRANSPARENT, helpCommand},
};

} // namespace

void registerNativeCommands(AcEdCommandStack& stack)
{
    for (const NativeCommand& command : kCommands)
        stack.addCommand(kGroup, command.name, command.name, command.flags, command.run);
}

} // namespace host
