#include "draw/drawing_engine.h"

#include "frame/command_posting.h"
#include "host/db/database.h"
#include "host/db/entity.h"
#include "host/text/case_mapping.h"
#include "objects/conformity.h"
#include "session/session.h"

namespace {

AcDbDatabase* workingDatabase()
{
    return acdbHostApplicationServices()->workingDatabase();
}

std::uint32_t numberOf(const AcDbDatabase& database)
{
    return database.drawing().number;
}

} // namespace

namespace detail {

command::~command()
{
    for (const std::uint32_t number : databases_)
        if (AcDbDatabase* const database = AcDbDatabase::withNumber(number))
            database->removeReactor(this);
    if (AcEditor* const editor = acedEditorPtr())
        editor->removeReactor(this);
}

void command::detach()
{
    if (AcDbDatabase* const database = workingDatabase()) {
        database->removeReactor(this);
        databases_.erase(numberOf(*database));
    }
    if (AcEditor* const editor = acedEditorPtr())
        editor->removeReactor(this);
}

void command::attach()
{
    active_ = false;
    detach();
    if (AcDbDatabase* const database = workingDatabase()) {
        database->addReactor(this);
        databases_.insert(numberOf(*database));
    }
    if (AcEditor* const editor = acedEditorPtr())
        editor->addReactor(this);
}

void command::start(DrawingScript script, std::shared_ptr<const ObjectDef> object,
                    std::vector<HostVariable> saved)
{
    script_ = std::move(script);
    context_ = std::move(object);
    appended_.clear();
    savedVariables_ = std::move(saved);
    active_ = true;
    typeCommand();
}

void command::typeCommand() const
{
    PostCommandLine(script_.commandText);
}

bool command::waitsFor(const wchar_t* name) const
{
    return active_ && host::lowerCased(name) == script_.commandName;
}

void command::finishAppended() const
{
    for (const AcDbObjectId entity : appended_)
        script_.finish(*context_, entity);
}

void command::cleanUp()
{
    for (const HostVariable& variable : savedVariables_)
        WriteHostVariable(variable);
    detach();
}

void command::commandEnded(const wchar_t* name)
{
    if (!waitsFor(name))
        return;
    // what the finish steps make themselves is not collected
    active_ = false;
    if (!script_.repeat) {
        cleanUp();
        finishAppended();
        return;
    }
    finishAppended();
    active_ = true;
    appended_.clear();
    typeCommand();
}

void command::commandCancelled(const wchar_t* name)
{
    if (!waitsFor(name))
        return;
    active_ = false;
    cleanUp();
    finishAppended();
}

void command::commandFailed(const wchar_t* name)
{
    if (!waitsFor(name))
        return;
    active_ = false;
    cleanUp();
}

void command::objectAppended(const AcDbDatabase* database, const AcDbObject* object)
{
    if (!active_ || !database || !object)
        return;
    if (!object->isKindOf(AcDbEntity::desc()))
        return;
    if (!script_.typeFilter || typeAccepted(*context_, static_cast<const AcDbEntity&>(*object)))
        appended_.push_back(object->objectId());
}

void command::objectErased(const AcDbDatabase*, const AcDbObject* object, bool)
{
    if (!active_ || !object)
        return;
    const AcDbObjectId id = object->objectId();
    for (std::size_t at = 0; at < appended_.size();) {
        if (appended_[at] != id) {
            ++at;
            continue;
        }
        appended_[at] = appended_.back();
        appended_.pop_back();
    }
}

void command::goodbye(const AcDbDatabase* database)
{
    databases_.erase(numberOf(*database));
}

} // namespace detail

detail::command& drawingEngine()
{
    return session().kept<detail::command>();
}
