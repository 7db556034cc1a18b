#pragma once

#include "description/object_def.h"
#include "host/db/object_id.h"
#include "host/db/reactors.h"
#include "host/edit/editor_reactor.h"

#include <memory>
#include <set>
#include <string>
#include <vector>

// Gives one entity that a host command drew what its object says.
using FinishStep = void (*)(const ObjectDef& object, AcDbObjectId entity);

// A host command that draws one object.
struct DrawingScript {
    std::wstring commandText; // typed, its line end included
    std::wstring commandName; // whose end is waited for, in lower case
    bool typeFilter = true;   // collects entities of the object's types only
    bool repeat = false;      // starts again when it has ended
    FinishStep finish = nullptr;
};

namespace detail {

// Watches the running host command: collects the entities that it appends, finishes them when it
// ends, and starts it again. One object is drawn at a time. The object that is drawn is shared, so
// that it outlives the description it stands in.
class command final : public AcEditorReactor, public AcDbDatabaseReactor {
public:
    command() = default;
    ~command() override;
    command(const command&) = delete;
    command& operator=(const command&) = delete;

    // Listens to the editor and the working drawing, behind everybody who listens already, and
    // waits for nothing until a script is started: what was being drawn is left as it is.
    void attach();
    // Takes the place of what is being drawn, whose saved variables are not written back, and types
    // the script's command. The saved variables are written when the drawing ends.
    void start(DrawingScript script, std::shared_ptr<const ObjectDef> object,
               std::vector<HostVariable> saved);

    void commandEnded(const wchar_t* name) override;
    void commandCancelled(const wchar_t* name) override;
    void commandFailed(const wchar_t* name) override;

    void objectAppended(const AcDbDatabase* database, const AcDbObject* object) override;
    // Forgets what the command drew and took back. The last one takes the place of the erased one.
    void objectErased(const AcDbDatabase* database, const AcDbObject* object, bool erased) override;
    void goodbye(const AcDbDatabase* database) override;

private:
    bool waitsFor(const wchar_t* name) const;
    void typeCommand() const;
    void finishAppended() const;
    void cleanUp();
    void detach(); // the working drawing need not be the one that was drawn in

    std::shared_ptr<const ObjectDef> context_;
    bool active_ = false;
    DrawingScript script_;
    std::vector<AcDbObjectId> appended_;
    std::vector<HostVariable> savedVariables_;
    std::set<std::uint32_t> databases_; // numbers of those it listens to
};

} // namespace detail

// The running session's one.
detail::command& drawingEngine();
