#include "shell/command_table.h"

#include "classify/auto_command.h"
#include "classify/classify_command.h"
#include "classify/delete_duplicates_command.h"
#include "classify/remove_all_command.h"
#include "classify/remove_command.h"
#include "classify/round_command.h"
#include "classify/select_classified_command.h"
#include "classify/select_conforming_command.h"
#include "classify/select_duplicates_command.h"
#include "classify/select_object_command.h"
#include "classify/select_values_command.h"
#include "classify/sort_command.h"
#include "classify/stat_command.h"
#include "classify/type_command.h"
#include "draw/draw_command.h"
#include "draw/impl_insert_command.h"
#include "draw/impl_mtext_command.h"
#include "draw/impl_text_command.h"
#include "draw/restore_command.h"
#include "shell/about_command.h"
#include "shell/load_command.h"
#include "templates/template_command.h"

namespace {

constexpr CommandRow kCommands[] = {
    {L"KELMARO_CLASSIFY", classifyEntities},
    {L"KELMARO_CLASSIFY_AUTO", classifyAutomatically},
    {L"KELMARO_DRAW", drawNamedObject},
    {L"KELMARO_LOAD", loadDescription},
    {L"KELMARO_RESTORE", restoreObjects},
    {L"KELMARO_RELOAD", reloadDescription},
    {L"KELMARO_REMOVE", removeNamedObject},
    {L"KELMARO_REMOVE_ALL", removeAllObjects},
    {L"KELMARO_SEL", selectByObject},
    {L"KELMARO_SEL_CLASS", selectByClass},
    {L"KELMARO_SEL_EXT", selectByConformity},
    {L"KELMARO_SEL_ALL", selectAllByConformity},
    {L"KELMARO_SEL_NULL", selectNullValues},
    {L"KELMARO_ASSERT", selectIllegalValues},
    {L"KELMARO_SORT", sortByPriority},
    {L"KELMARO_SEL_CLASSIFIED", selectClassified},
    {L"KELMARO_SEL_DUPLICATES", selectDuplicates},
    {L"KELMARO_DEL_DUPLICATES", deleteDuplicates},
    {L"KELMARO_ROUND", roundValues},
    {L"KELMARO_TEMPLATE", generateTemplate},
    {L"KELMARO_TYPE", tellEntityTypes},
    {L"KELMARO_STAT", showStatistics},
    {L"KELMARO_ABOUT", showAbout},
    {L"KELMARO_IMPL_INSRT", insertObjectBlock},
    {L"KELMARO_IMPL_TXT", writeObjectText},
    {L"KELMARO_IMPL_MTXT", writeObjectMText},
};

} // namespace

std::span<const CommandRow> commandTable()
{
    return kCommands;
}
