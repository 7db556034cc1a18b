#include "frame/command_frame.h"

#include "host/edit/document.h"
#include "session/session.h"
#include "text/messages.h"

ResourceScope::ResourceScope()
{
    acDocManagerPtr()->pushResourceHandle(session().resourceModule);
}

ResourceScope::~ResourceScope()
{
    acDocManagerPtr()->popResourceHandle();
}

CommandFrame::CommandFrame() : description_(session().description)
{
    if (!description_)
        tell(Message::noFileLoaded);
}

AcDbObjectId currentStore()
{
    OdStore& store = session().store;
    return store.getStoreId(store.currentDatabase());
}
