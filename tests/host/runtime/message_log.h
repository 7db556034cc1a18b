#pragma once

#include "host/runtime/app_message.h"
#include "host/runtime/rx_object.h"

#include <vector>

// Shared between a test and the modules it loads, through the registry under kMessageLog.
struct MessageLog : AcRxObject {
    std::vector<int> messages;
    AcRx::AppRetCode answer = AcRx::kRetOK;
    bool unlocks = true;
    bool throws = false;
};

inline constexpr const wchar_t* kMessageLog = L"MessageLog";
