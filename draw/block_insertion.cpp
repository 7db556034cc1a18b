#include "draw/block_insertion.h"

#include "draw/named_styles.h"
#include "frame/echo_off.h"
#include "host/db/block_table.h"
#include "host/db/database.h"
#include "host/edit/command_call.h"
#include "host/edit/selection_set.h"
#include "host/edit/system_variables.h"
#include "host/text/case_mapping.h"
#include "objects/block_definition.h"

namespace {

// Enter for the rotation and for what else the host may ask besides the attributes.
constexpr int kFurtherAnswers = 4;

bool scalesUniformly(AcDbObjectId blockId)
{
    const AcDbObjectPointer<AcDbBlockTableRecord> block(blockId, AcDb::kForRead);
    return block && block->blockScaling() == AcDbBlockTableRecord::kUniform;
}

bool insertRuns()
{
    resbuf names;
    return acedGetVar(L"CMDNAMES", names) == RTNORM &&
           host::lowerCased(names.resval.rstring).find(L"insert") != std::wstring::npos;
}

AcDbObjectId lastEntity()
{
    ads_name name{};
    AcDbObjectId id;
    if (acdbEntLast(name) == RTNORM)
        acdbGetObjectId(id, name);
    return id;
}

} // namespace

AcDbObjectId insertBlock(const std::wstring& blockName, const AcGePoint3d& position,
                         const AcGeScale3d& scale)
{
    const AcDbDatabase* const database = acdbHostApplicationServices()->workingDatabase();
    const AcDbObjectId block = database ? blockNamed(*database, blockName) : AcDbObjectId();
    if (block.isNull())
        return {};

    ResbufChain tokens = {host::textToken(L"_.-insert"), host::textToken(blockName.c_str()),
                          host::pointToken(position)};
    if (scalesUniformly(block)) {
        tokens.push_back(host::realToken(scale.sx));
    } else {
        tokens.push_back(host::textToken(L"_x"));
        for (const double factor : {scale.sx, scale.sy, scale.sz})
            tokens.push_back(host::realToken(factor));
    }
    const int answers = variableAttributeCount(block) + kFurtherAnswers;
    tokens.insert(tokens.end(), static_cast<std::size_t>(answers), host::textToken(nullptr));

    const AcDbObjectId before = lastEntity();
    {
        const EchoOff echo;
        acedCmd(tokens);
        while (insertRuns() && acedCommand({host::textToken(L"\\")}) == RTNORM) {
        }
    }
    const AcDbObjectId after = lastEntity();
    return after == before ? AcDbObjectId() : after;
}
