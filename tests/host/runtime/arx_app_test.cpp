#include "host/runtime/arx_app.h"

#include <gtest/gtest.h>

#include <string>

namespace {

class NamingApp : public AcRxArxApp {
public:
    std::string called;

    AcRx::AppRetCode On_kInitAppMsg(void*) override { return name("init"); }
    AcRx::AppRetCode On_kUnloadAppMsg(void*) override { return name("unload"); }
    AcRx::AppRetCode On_kLoadDwgMsg(void*) override { return name("load dwg"); }
    AcRx::AppRetCode On_kUnloadDwgMsg(void*) override { return name("unload dwg"); }
    AcRx::AppRetCode On_kInvkSubrMsg(void*) override { return name("invoke"); }
    AcRx::AppRetCode On_kQuitMsg(void*) override { return name("quit"); }
    AcRx::AppRetCode On_kEndDialogMsg(void*) override { return name("end dialog"); }
    AcRx::AppRetCode On_kNullMsg(void*) override { return name("null"); }

private:
    AcRx::AppRetCode name(const char* text)
    {
        called = text;
        return AcRx::kRetError;
    }
};

TEST(ArxApp, HandsEachCodeToItsHandler)
{
    const std::pair<int, std::string> cases[] = {
        {0, "null"},       {1, "init"},   {2, "unload"}, {3, "load dwg"},
        {4, "unload dwg"}, {5, "invoke"}, {8, "quit"},   {15, "end dialog"},
    };
    for (const auto& [code, handler] : cases) {
        NamingApp app;
        EXPECT_EQ(app.dispatch(static_cast<AcRx::AppMsgCode>(code), nullptr), AcRx::kRetError);
        EXPECT_EQ(app.called, handler) << code;
    }
    for (const int code : {7, 16, 255, -1}) {
        NamingApp app;
        EXPECT_EQ(app.dispatch(static_cast<AcRx::AppMsgCode>(code), nullptr), AcRx::kRetOK) << code;
        EXPECT_EQ(app.called, "") << code;
    }
}

} // namespace
