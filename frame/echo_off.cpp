#include "frame/echo_off.h"

#include "host/edit/system_variables.h"

namespace {

void setEcho(short value)
{
    resbuf echo;
    echo.restype = static_cast<short>(RTSHORT);
    echo.resval.rint = value;
    acedSetVar(L"CMDECHO", echo);
}

} // namespace

EchoOff::EchoOff()
{
    resbuf echo;
    if (acedGetVar(L"CMDECHO", echo) == RTNORM)
        before_ = echo.resval.rint;
    setEcho(0);
}

EchoOff::~EchoOff()
{
    setEcho(before_);
}
