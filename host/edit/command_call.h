#pragma once

#include "host/runtime/resbuf.h"

// Runs a command from inside a command. The first token is its name, each other token answers one
// prompt: RTSTR (empty: Enter), RTSHORT, RTLONG, RTREAL, RTPOINT, RT3DPOINT, RTENAME, RTPICKS. A
// text of one backslash hands exactly one prompt to the user. When the tokens are used up and the
// command still asks, it stays suspended; CMDNAMES names it and the next call goes on with it.
// Tokens that are left when it has ended are dropped. No tokens at all cancel it.
//
// RTNORM; RTCAN when the user cancelled it; RTERROR when it failed, when there is no such command,
// or outside of a command. While CMDECHO is 0 the prompts that tokens answer are not shown.
int acedCommand(const ResbufChain& tokens);
int acedCmd(const ResbufChain& tokens);

// "CANCELCMD" ends every running command, before any text that is queued after it. Other text is
// queued as it is.
int acedPostCommand(const wchar_t* text);

namespace host {

// Tokens for a chain.
resbuf textToken(const wchar_t* text);
resbuf realToken(double value);
resbuf shortToken(short value);
resbuf pointToken(const ads_point& point);
resbuf entityToken(const ads_name& entity);
resbuf selectionToken(const ads_name& set);

} // namespace host
