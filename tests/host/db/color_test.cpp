#include "host/db/color.h"

#include <gtest/gtest.h>

#include <limits>

namespace {

struct Row {
    int index;
    int red, green, blue;
};

TEST(Color, PaletteFollowsHueBrightnessAndPaleness)
{
    const Row rows[] = {
        {1, 255, 0, 0},       {7, 255, 255, 255},   {8, 128, 128, 128},  {10, 255, 0, 0},
        {11, 255, 127, 127},  {12, 204, 0, 0},      {13, 204, 102, 102}, {14, 153, 0, 0},
        {16, 127, 0, 0},      {17, 127, 63, 63},    {18, 76, 0, 0},      {19, 76, 38, 38},
        {20, 255, 63, 0},     {21, 255, 159, 127},  {30, 255, 127, 0},   {40, 255, 191, 0},
        {50, 255, 255, 0},    {60, 191, 255, 0},    {90, 0, 255, 0},     {120, 0, 255, 191},
        {130, 0, 255, 255},   {150, 0, 127, 255},   {170, 0, 0, 255},    {190, 127, 0, 255},
        {210, 255, 0, 255},   {240, 255, 0, 63},    {249, 76, 38, 47},   {250, 51, 51, 51},
        {252, 132, 132, 132}, {255, 255, 255, 255},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.index);
        const host::Rgb color = host::colorOfIndex(row.index);
        EXPECT_EQ(color.red, row.red);
        EXPECT_EQ(color.green, row.green);
        EXPECT_EQ(color.blue, row.blue);
    }
}

// Pairs of index and true colour as CAD programs wrote them side by side.
TEST(Color, NearestIndexIsTheOneThatDrawingsKeepBesideATrueColour)
{
    const Row rows[] = {
        {5, 0, 0, 255},     {18, 0, 0, 0},      {7, 255, 255, 255},
        {8, 128, 128, 128}, {8, 120, 120, 120}, {253, 160, 160, 164},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.index);
        AcCmColor color;
        color.setRGB(static_cast<std::uint8_t>(row.red), static_cast<std::uint8_t>(row.green),
                     static_cast<std::uint8_t>(row.blue));
        EXPECT_EQ(color.colorIndex(), row.index);
    }
}

TEST(Color, IndexOfATagHasNoSign)
{
    const std::pair<int, int> rows[] = {
        {0, 0}, {7, 7}, {-7, 7}, {256, 256}, {300, 257}, {std::numeric_limits<int>::min(), 257},
    };
    for (const auto& [tag, index] : rows)
        EXPECT_EQ(host::colorIndexOfTag(tag), index) << tag;
}

TEST(Color, MethodFollowsTheIndex)
{
    const std::pair<int, AcCmColor::ColorMethod> rows[] = {
        {0, AcCmColor::kByBlock},   {1, AcCmColor::kByACI},  {255, AcCmColor::kByACI},
        {256, AcCmColor::kByLayer}, {257, AcCmColor::kNone}, {300, AcCmColor::kNone},
    };
    for (const auto& [index, method] : rows) {
        AcCmColor color;
        color.setColorIndex(static_cast<std::uint16_t>(index));
        EXPECT_EQ(color.colorMethod(), method) << index;
    }
}

TEST(Color, TrueColoursAreEqualWhateverIndexTheyKeep)
{
    AcCmColor red;
    red.setRGB(255, 0, 0);
    AcCmColor stored = red;
    stored.setStoredIndex(240);
    EXPECT_TRUE(red == stored);
    AcCmColor index;
    index.setColorIndex(1);
    EXPECT_FALSE(red == index); // the same on the screen, another thing in the drawing
}

} // namespace
