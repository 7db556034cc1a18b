#include "host/edit/pick_first.h"

#include "host/edit/document.h"
#include "host/edit/editor_reactor.h"

namespace host {

namespace {

std::vector<AcDbObjectId> living(std::vector<AcDbObjectId> ids)
{
    std::erase_if(ids, [](AcDbObjectId id) { return id.isErased(); });
    return ids;
}

} // namespace

std::vector<AcDbObjectId> currentPickFirst()
{
    const AcApDocument* const document = curDoc();
    return document ? living(document->pickFirst) : std::vector<AcDbObjectId>();
}

void setPickFirst(std::vector<AcDbObjectId> ids)
{
    AcApDocument* const document = curDoc();
    if (!document || (ids.empty() && document->pickFirst.empty()))
        return;
    document->pickFirst = std::move(ids);
    if (AcEditor* const editor = acedEditorPtr())
        editor->tellReactors([](AcEditorReactor& reactor) { reactor.pickfirstModified(); });
}

std::vector<AcDbObjectId> previousSelection()
{
    const AcApDocument* const document = curDoc();
    return document ? living(document->previous) : std::vector<AcDbObjectId>();
}

void setPreviousSelection(std::vector<AcDbObjectId> ids)
{
    if (AcApDocument* const document = curDoc())
        document->previous = std::move(ids);
}

} // namespace host
