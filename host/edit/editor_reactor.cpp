#include "host/edit/editor_reactor.h"

#include "host/runtime/registry.h"

ACRX_NO_CONS_DEFINE_MEMBERS(AcEditor, AcRxObject)

void AcEditor::addReactor(AcEditorReactor* reactor)
{
    if (reactor && std::find(reactors_.begin(), reactors_.end(), reactor) == reactors_.end())
        reactors_.push_back(reactor);
}

void AcEditor::removeReactor(AcEditorReactor* reactor)
{
    std::erase(reactors_, reactor);
}

AcEditor* acedEditorPtr()
{
    return AcEditor::cast(acrxSysRegistry()->at(L"AcEditor"));
}
