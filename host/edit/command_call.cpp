#include "host/edit/command_call.h"

#include "host/edit/command_engine.h"
#include "host/text/case_mapping.h"

int acedCommand(const ResbufChain& tokens)
{
    return host::engineExists() ? host::engine().call(tokens) : RTERROR;
}

int acedCmd(const ResbufChain& tokens)
{
    return acedCommand(tokens);
}

int acedPostCommand(const wchar_t* text)
{
    if (!text || !host::engineExists())
        return RTERROR;
    if (host::equalNoCase(text, L"CANCELCMD")) {
        host::engine().postCancel();
        return RTNORM;
    }
    AcApDocManager& documents = *acDocManagerPtr();
    return documents.sendStringToExecute(documents.curDocument(), text) == Acad::eOk ? RTNORM
                                                                                     : RTERROR;
}

namespace host {

resbuf textToken(const wchar_t* text)
{
    resbuf token{static_cast<short>(RTSTR), {}};
    token.resval.rstring = text ? text : L"";
    return token;
}

resbuf realToken(double value)
{
    resbuf token{static_cast<short>(RTREAL), {}};
    token.resval.rreal = value;
    return token;
}

resbuf shortToken(short value)
{
    resbuf token{static_cast<short>(RTSHORT), {}};
    token.resval.rint = value;
    return token;
}

resbuf pointToken(const ads_point& point)
{
    resbuf token{static_cast<short>(RT3DPOINT), {}};
    token.resval.rpoint = point;
    return token;
}

resbuf entityToken(const ads_name& entity)
{
    resbuf token{static_cast<short>(RTENAME), {}};
    token.resval.rlname = entity;
    return token;
}

resbuf selectionToken(const ads_name& set)
{
    resbuf token{static_cast<short>(RTPICKS), {}};
    token.resval.rlname = set;
    return token;
}

} // namespace host
