#pragma once

#include "description/description.h"
#include "session/document_data.h"
#include "session/notices.h"
#include "store/od_store.h"

#include <algorithm>
#include <memory>
#include <string>
#include <typeindex>
#include <utility>
#include <vector>

// All that outlives a command; the plug-in's only global. There is one description for the whole
// program, whichever drawing is current; what depends on the drawing is looked up at each use.
class Session {
public:
    Session() = default;
    ~Session();
    Session(const Session&) = delete;
    Session& operator=(const Session&) = delete;

    // Null until a file was chosen. A file that failed leaves an empty one. Replaced whole; who
    // works on one across a prompt or a host command shares it, so that it lives as long as needed.
    std::shared_ptr<Description> description;
    std::wstring descriptionPath;   // the file chosen last, also when it failed
    void* resourceModule = nullptr; // null: texts come from the plug-in's own module
    OdStore store;
    AcApDataManager documents;

    // A listener takes itself out before it dies.
    void addListener(SessionListener* listener) { listeners_.push_back(listener); }
    void removeListener(SessionListener* listener) { std::erase(listeners_, listener); }
    void tellDrawn(const std::wstring& name);
    void tellClassified(const std::wstring& name);

    // What a higher file keeps from command to command: one object of each type, made when first
    // asked for. They die with the session, the last made first.
    template <class T> T& kept()
    {
        const std::type_index type = typeid(T);
        for (const auto& [keptType, object] : kept_)
            if (keptType == type)
                return *static_cast<T*>(object.get());
        const auto made = std::make_shared<T>();
        kept_.emplace_back(type, made);
        return *made;
    }
    void forgetKept();

private:
    // Listeners come and go inside a call.
    template <class Call> void tell(Call call)
    {
        const std::vector<SessionListener*> now = listeners_;
        for (SessionListener* listener : now)
            if (std::find(listeners_.begin(), listeners_.end(), listener) != listeners_.end())
                call(*listener);
    }

    std::vector<SessionListener*> listeners_;
    std::vector<std::pair<std::type_index, std::shared_ptr<void>>> kept_;
};

// The running session, begun when first asked for.
Session& session();

// Forgets everything; the next use begins anew.
void endSession();
