#include "host/runtime/dynamic_linker.h"

#include "host/runtime/registry.h"
#include "tests/host/runtime/message_log.h"

#include <gtest/gtest.h>

namespace {

namespace fs = std::filesystem;

class DynamicLinker : public testing::Test {
protected:
    DynamicLinker() { acrxSysRegistry()->atPut(kMessageLog, &log_); }
    ~DynamicLinker() override
    {
        log_.throws = false;
        linker().unloadAll();
        acrxSysRegistry()->remove(kMessageLog);
    }

    // The build puts programs and modules into neighbouring folders.
    static fs::path module(const char* name)
    {
        return fs::read_symlink("/proc/self/exe").parent_path().parent_path() / "lib" /
               (std::string(name) + ".arx");
    }

    // Modules speak to the program's linker, so that is the one under test.
    static AcRxDynamicLinker& linker() { return *acrxDynamicLinker(); }

    MessageLog log_;
    std::wstring error_;
};

TEST_F(DynamicLinker, TellsAModuleThatItIsLoadedAndThatItGoes)
{
    ASSERT_TRUE(linker().loadModule(module("logging"), error_)) << fs::path(error_);
    EXPECT_TRUE(linker().isLoaded(module("logging")));
    EXPECT_FALSE(linker().loadModule(module("logging"), error_));
    EXPECT_NE(error_.find(L"loaded already"), std::wstring::npos);
    EXPECT_TRUE(linker().unloadModule(module("logging"), error_));
    EXPECT_EQ(log_.messages, (std::vector<int>{1, 2}));
    EXPECT_FALSE(linker().isLoaded(module("logging")));
    EXPECT_FALSE(linker().unloadModule(module("logging"), error_));
    EXPECT_TRUE(linker().loadModule(module("logging"), error_)) << "a second time";
}

TEST_F(DynamicLinker, RefusesFilesThatAreNoModulesForThisHost)
{
    const std::pair<fs::path, const wchar_t*> cases[] = {
        {module("there_is_no_such_module"), L"No such file"},
        {"/proc/self/status", L"'/proc/self/status': "},
        {module("other_version"), L"built for interface 0x130000, the host has 0x120000"},
        {module("no_version"), L"exports no acrxGetApiVersion"},
        {module("no_entry_point"), L"exports no acrxEntryPoint"},
    };
    for (const auto& [path, told] : cases) {
        SCOPED_TRACE(path);
        EXPECT_FALSE(linker().loadModule(path, error_));
        EXPECT_NE(error_.find(told), std::wstring::npos) << fs::path(error_);
        EXPECT_NE(error_.find(path.filename().wstring()), std::wstring::npos);
        EXPECT_FALSE(linker().isLoaded(path));
    }
    EXPECT_TRUE(log_.messages.empty());
}

TEST_F(DynamicLinker, KeepsNothingOfAModuleThatFailsToStart)
{
    log_.answer = AcRx::kRetError;
    EXPECT_FALSE(linker().loadModule(module("logging"), error_));
    EXPECT_NE(error_.find(L"refused to start"), std::wstring::npos);
    EXPECT_FALSE(linker().isLoaded(module("logging")));

    log_.answer = AcRx::kRetOK;
    log_.throws = true;
    EXPECT_FALSE(linker().loadModule(module("logging"), error_));
    EXPECT_NE(error_.find(L"no licence for this"), std::wstring::npos);
    EXPECT_TRUE(linker().loadedModules().empty());
}

TEST_F(DynamicLinker, UnloadsALockedModuleOnlyAtTheEnd)
{
    log_.unlocks = false;
    ASSERT_TRUE(linker().loadModule(module("logging"), error_));
    EXPECT_FALSE(linker().unloadModule(module("logging"), error_));
    EXPECT_NE(error_.find(L"locked"), std::wstring::npos);
    EXPECT_EQ(log_.messages, (std::vector<int>{1}));
    linker().unloadAll();
    EXPECT_EQ(log_.messages, (std::vector<int>{1, 2}));
}

TEST_F(DynamicLinker, KnowsNoApplicationButLoadedOnes)
{
    EXPECT_FALSE(linker().unlockApplication(nullptr));
    EXPECT_FALSE(linker().registerAppMDIAware(this));
}

} // namespace
