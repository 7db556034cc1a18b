#pragma once

#include "host/runtime/rx_object.h"

#include <algorithm>
#include <vector>

// Hears what the editor does. Names of commands are global names in capitals.
class AcEditorReactor {
public:
    virtual ~AcEditorReactor() = default;
    virtual void commandWillStart(const wchar_t* /*name*/) {}
    virtual void commandEnded(const wchar_t* /*name*/) {}
    virtual void commandCancelled(const wchar_t* /*name*/) {}
    virtual void commandFailed(const wchar_t* /*name*/) {}
    virtual void unknownCommand(const wchar_t* /*name*/) {}
    virtual void lispWillStart(const wchar_t* /*firstLine*/) {}
    virtual void lispEnded() {}
    virtual void lispCancelled() {}
    virtual void sysVarWillChange(const wchar_t* /*name*/) {}
    virtual void sysVarChanged(const wchar_t* /*name*/, bool /*success*/) {}
    virtual void pickfirstModified() {}
};

// Whom the editor tells; in the registry under "AcEditor".
class AcEditor : public AcRxObject {
    ACRX_DECLARE_MEMBERS(AcEditor)
public:
    void addReactor(AcEditorReactor* reactor); // once, however often it is added
    void removeReactor(AcEditorReactor* reactor);

    // Walks a copy of the list: reactors add and remove themselves inside a call.
    template <class Call> void tellReactors(Call call)
    {
        const std::vector<AcEditorReactor*> now = reactors_;
        for (AcEditorReactor* reactor : now)
            if (std::find(reactors_.begin(), reactors_.end(), reactor) != reactors_.end())
                call(*reactor);
    }

private:
    std::vector<AcEditorReactor*> reactors_;
};

// The registry's one; null outside of a session.
AcEditor* acedEditorPtr();
