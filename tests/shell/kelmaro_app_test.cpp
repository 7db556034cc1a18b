#include "host/edit/pick_first.h"
#include "host/runtime/dynamic_linker.h"
#include "host/runtime/load_outcome.h"
#include "host/runtime/registry.h"
#include "shell/command_table.h"
#include "tests/support/plugin_test.h"

namespace {

using State = host::LoadOutcome::State;

class AppTest : public PluginTest {
protected:
    std::optional<State> outcome()
    {
        const auto* const report =
            dynamic_cast<const host::LoadOutcome*>(acrxSysRegistry()->at(L"KELMARO"));
        return report ? std::optional(report->state()) : std::nullopt;
    }
    bool knows(const wchar_t* name) { return session().commands().lookUp(name) != nullptr; }
    Description* description() { return ::session().description.get(); }
};

constexpr const char* kWall = "obj_name|Wall|1|5\nobj_type|Line\n";

} // namespace

TEST_F(AppTest, LoadingTheModuleAddsTheCommandsAndNothingElse)
{
    std::vector<std::wstring> names;
    for (const CommandRow& row : commandTable()) {
        const auto command = session().commands().lookUp(row.name);
        ASSERT_NE(command, nullptr);
        EXPECT_EQ(command->group, L"KELMARO");
        EXPECT_EQ(command->localName, command->globalName);
        EXPECT_EQ(command->flags, 70);
        EXPECT_EQ(command->functionCode, -1);
        names.push_back(command->globalName);
    }
    EXPECT_EQ(names,
              (std::vector<std::wstring>{
                  L"KELMARO_CLASSIFY",       L"KELMARO_CLASSIFY_AUTO",  L"KELMARO_DRAW",
                  L"KELMARO_LOAD",           L"KELMARO_RESTORE",        L"KELMARO_RELOAD",
                  L"KELMARO_REMOVE",         L"KELMARO_REMOVE_ALL",     L"KELMARO_SEL",
                  L"KELMARO_SEL_CLASS",      L"KELMARO_SEL_EXT",        L"KELMARO_SEL_ALL",
                  L"KELMARO_SEL_NULL",       L"KELMARO_ASSERT",         L"KELMARO_SORT",
                  L"KELMARO_SEL_CLASSIFIED", L"KELMARO_SEL_DUPLICATES", L"KELMARO_DEL_DUPLICATES",
                  L"KELMARO_ROUND",          L"KELMARO_TEMPLATE",       L"KELMARO_TYPE",
                  L"KELMARO_STAT",           L"KELMARO_ABOUT",          L"KELMARO_IMPL_INSRT",
                  L"KELMARO_IMPL_TXT",       L"KELMARO_IMPL_MTXT",
              }));
    EXPECT_EQ(description(), nullptr);
    EXPECT_EQ(outcome(), State::notLoaded);
}

TEST_F(AppTest, UnloadingTakesEverythingDown)
{
    load(kWall);
    app.dispatch(AcRx::kUnloadAppMsg, nullptr);
    EXPECT_FALSE(knows(L"KELMARO_LOAD"));
    EXPECT_EQ(outcome(), std::nullopt);
    EXPECT_EQ(description(), nullptr);
    EXPECT_EQ(::session().descriptionPath, L"");
    app.dispatch(AcRx::kInitAppMsg, nullptr);
    EXPECT_TRUE(knows(L"KELMARO_LOAD"));
}

TEST_F(AppTest, OtherMessagesHaveNoEffect)
{
    for (const int message : {0, 3, 4, 5, 6, 15, 16, 17, 1000, -1})
        EXPECT_EQ(app.dispatch(static_cast<AcRx::AppMsgCode>(message), nullptr), AcRx::kRetOK);
    EXPECT_TRUE(knows(L"KELMARO_LOAD"));
}

TEST_F(AppTest, ALoadReplacesTheDescription)
{
    load(kWall);
    ASSERT_NE(description(), nullptr);
    EXPECT_NE(description()->findObject(L"Wall"), nullptr);
    EXPECT_EQ(outcome(), State::loaded);
    const std::shared_ptr<Description> before = ::session().description;
    load("obj_name|Gate|1|5\nobj_type|Line\n", "other.txt");
    EXPECT_EQ(description()->findObject(L"Wall"), nullptr);
    EXPECT_NE(description()->findObject(L"Gate"), nullptr);
    EXPECT_NE(before->findObject(L"Wall"), nullptr); // for who still works on it
}

TEST_F(AppTest, ACancelledLoadLeavesEverything)
{
    load(kWall);
    const Description* const before = description();
    const std::wstring path = ::session().descriptionPath;
    host::setPickFirst({database().modelSpaceId()});
    const std::wstring printed = transcript(L"kelmaro_load\n\x3");
    EXPECT_EQ(description(), before);
    EXPECT_EQ(::session().descriptionPath, path);
    EXPECT_EQ(outcome(), State::loaded);
}

TEST_F(AppTest, AFileThatFailsLeavesAnEmptyDescriptionAndItsPath)
{
    const std::wstring printed = load("obj_name|Wall|1|5\nobj_type|Line\nnonsense\n");
    EXPECT_NE(printed.find(L"3: error: invalid syntax: 'nonsense'\n"), std::wstring::npos);
    ASSERT_NE(description(), nullptr);
    EXPECT_TRUE(description()->objects.empty());
    EXPECT_EQ(outcome(), State::failed);

    // mended, the same file reads
    writeDescription(folder(), kWall);
    type(L"kelmaro_reload\n");
    EXPECT_NE(description()->findObject(L"Wall"), nullptr);
    EXPECT_EQ(outcome(), State::loaded);

    std::filesystem::remove(folder() / "description.txt");
    type(L"kelmaro_reload\n");
    EXPECT_TRUE(description()->objects.empty());
    EXPECT_EQ(outcome(), State::notOpened);
}

TEST_F(AppTest, AReloadBeforeAnyLoadDoesNothing)
{
    const std::wstring printed = transcript(L"kelmaro_reload\n");
    EXPECT_EQ(printed.find(L"rror"), std::wstring::npos);
    EXPECT_EQ(description(), nullptr);
}

TEST_F(AppTest, LoadAndReloadClearTheSelection)
{
    DxfDrawing drawing;
    const std::string handle = drawing.line();
    open(drawing);
    host::setPickFirst({idOf(handle)});
    load(kWall);
    EXPECT_TRUE(host::currentPickFirst().empty());
    host::setPickFirst({idOf(handle)});
    type(L"kelmaro_reload\n");
    EXPECT_TRUE(host::currentPickFirst().empty());
}

TEST_F(AppTest, OneDescriptionServesEveryDrawing)
{
    load("obj_name|Wall|1|5\nobj_type|Line\nod_name|WALLS\nod_key|NAME\n");
    DxfDrawing drawing;
    const std::string handle = drawing.line();
    open(drawing, "second.dxf");
    classifyAs(*description(), storeId(), idOf(handle), L"Wall");
    type(L"kelmaro_sel Wall\n");
    EXPECT_EQ(host::currentPickFirst(), std::vector{idOf(handle)});
}

TEST_F(AppTest, ACommandThatIsNotThereIsUnknown)
{
    EXPECT_NE(transcript(L"kelmaro_nothing\n").find(L"nknown command"), std::wstring::npos);
}

// The module as a program loads it: its two exports and a plug-in of its own inside.
TEST_F(AppTest, TheModuleLoadsAndGoes)
{
    app.dispatch(AcRx::kUnloadAppMsg, nullptr);
    const std::filesystem::path module =
        std::filesystem::read_symlink("/proc/self/exe").parent_path().parent_path() / "lib" /
        "kelmaro.arx";
    std::wstring error;
    ASSERT_TRUE(acrxDynamicLinker()->loadModule(module, error))
        << std::string(error.begin(), error.end());
    EXPECT_TRUE(knows(L"KELMARO_SEL"));
    EXPECT_EQ(outcome(), State::notLoaded);
    load(kWall);
    EXPECT_EQ(outcome(), State::loaded);
    EXPECT_EQ(description(), nullptr); // the module's session is another
    ASSERT_TRUE(acrxDynamicLinker()->unloadModule(module, error))
        << std::string(error.begin(), error.end());
    EXPECT_FALSE(knows(L"KELMARO_SEL"));
    EXPECT_EQ(outcome(), std::nullopt);
}
