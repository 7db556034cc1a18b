#include "shell/command_table.h"

#include "classify/assert_command.h"
#include "classify/select_classified_command.h"
#include "classify/select_conforming_command.h"
#include "classify/select_null_command.h"
#include "classify/select_object_command.h"
#include "shell/load_command.h"

namespace {

constexpr CommandRow kCommands[] = {
    {L"KELMARO_LOAD", loadDescription},
    {L"KELMARO_RELOAD", reloadDescription},
    {L"KELMARO_SEL", selectByObject},
    {L"KELMARO_SEL_CLASS", selectByClass},
    {L"KELMARO_SEL_EXT", selectByConformity},
    {L"KELMARO_SEL_ALL", selectAllByConformity},
    {L"KELMARO_SEL_NULL", selectNullValues},
    {L"KELMARO_ASSERT", selectIllegalValues},
    {L"KELMARO_SEL_CLASSIFIED", selectClassified},
};

} // namespace

std::span<const CommandRow> commandTable()
{
    return kCommands;
}
