#pragma once

#include "host/runtime/arx_app.h"

// The module's application object: adds the commands when the module is loaded, takes everything
// down when it goes. No file is read and no window made before a command asks for it.
class CkelmaroApp : public AcRxArxApp {
public:
    AcRx::AppRetCode On_kInitAppMsg(void* packet) override;
    AcRx::AppRetCode On_kUnloadAppMsg(void* packet) override;
};
