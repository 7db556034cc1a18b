#pragma once

#include "host/runtime/error_status.h"
#include "host/runtime/rx_object.h"

#include <memory>
#include <string>
#include <string_view>
#include <vector>

class AcEdUIContext;
using AcRxFunctionPtr = void (*)();

inline constexpr int ACRX_CMD_MODAL = 0;
inline constexpr int ACRX_CMD_TRANSPARENT = 1; // may run inside another, typed with "'"
inline constexpr int ACRX_CMD_USEPICKSET = 2;  // keeps the pick-first set at its start
inline constexpr int ACRX_CMD_REDRAW = 4;      // and at its end
inline constexpr int ACRX_CMD_NOPAPERSPACE = 64;
inline constexpr int ACRX_CMD_NO_UNDO_MARKER = 0x400000; // makes no step of its own (U, REDO)

// One command by its names; they compare without case.
class AcEdCommand {
public:
    std::wstring group;
    std::wstring globalName;
    std::wstring localName;
    int flags = ACRX_CMD_MODAL;
    AcRxFunctionPtr function = nullptr;
    AcEdUIContext* uiContext = nullptr;
    int functionCode = -1;
    void* resource = nullptr;
    void* cookie = nullptr;
};

// All commands, by group. In the registry under "ACAD_REGISTERED_COMMANDS". A command that runs
// while its group is removed runs to its end.
class AcEdCommandStack : public AcRxObject {
    ACRX_DECLARE_MEMBERS(AcEdCommandStack)
public:
    // eDuplicateKey when the group has the global name; eInvalidInput without name or function.
    Acad::ErrorStatus addCommand(const wchar_t* group, const wchar_t* globalName,
                                 const wchar_t* localName, int flags, AcRxFunctionPtr function,
                                 AcEdUIContext* uiContext = nullptr, int functionCode = -1,
                                 void* resource = nullptr, void* cookie = nullptr);
    // Both answer eKeyNotFound where there is nothing to remove.
    Acad::ErrorStatus removeCmd(const wchar_t* group, const wchar_t* globalName);
    Acad::ErrorStatus removeGroup(const wchar_t* group);

    // As typed: "_" asks for the global name, "." is passed over, otherwise the local name counts
    // before the global one. The command that was added first wins. Null when there is none.
    std::shared_ptr<const AcEdCommand> lookUp(std::wstring_view typedName) const;

    // Global names that begin with this, sorted, for completion.
    std::vector<std::wstring> namesFrom(std::wstring_view beginning) const;

private:
    std::vector<std::shared_ptr<const AcEdCommand>> commands_;
};

// The registry's one; null outside of a session.
AcEdCommandStack* acedRegCmdsPtr();
