#include "shell/command_table.h"
#include "tests/support/plugin_test.h"

namespace {

class AboutTest : public PluginTest {};

} // namespace

TEST_F(AboutTest, ShowsItsTextWithoutADescription)
{
    const std::wstring printed = transcript(L"kelmaro_about\n");
    EXPECT_NE(printed.find(L"KELMARO\n"), std::wstring::npos);
    EXPECT_EQ(printed.find(L"rror"), std::wstring::npos);
}

// What the drawing engine types stands behind all that is for people.
TEST_F(AboutTest, TheInternalCommandsAreTheLastOnes)
{
    const wchar_t* const names[] = {L"KELMARO_ABOUT", L"KELMARO_IMPL_INSRT", L"KELMARO_IMPL_TXT",
                                    L"KELMARO_IMPL_MTXT"};
    const std::span<const CommandRow> table = commandTable();
    const std::span<const CommandRow> end = table.last(std::size(names));
    for (std::size_t at = 0; at < std::size(names); ++at)
        EXPECT_STREQ(end[at].name, names[at]);
}
