#pragma once

#include "session/session.h"
#include "shell/kelmaro_app.h"
#include "tests/support/described_drawing.h"

// The plug-in in a host, driven by typed input.
class PluginTest : public DrawingTest {
protected:
    PluginTest() { app.dispatch(AcRx::kInitAppMsg, nullptr); }
    ~PluginTest() override { app.dispatch(AcRx::kUnloadAppMsg, nullptr); }

    // KELMARO_LOAD of a description; what it printed.
    std::wstring load(const std::string& lines, const char* name = "description.txt")
    {
        return transcript(L"kelmaro_load\n\"" + writeDescription(folder(), lines, name).wstring() +
                          L"\"\n");
    }
    AcDbObjectId storeId() { return ::session().store.getStoreId(&database()); }

    CkelmaroApp app;
};
