#include "host/db/dimension_text.h"
#include "host/text/encoding.h"

#include <gtest/gtest.h>

using host::DimensionStyle;

namespace {

DimensionStyle metric()
{
    DimensionStyle style;
    style.dec = 2;
    style.dsep = 44;
    style.zin = 8;
    return style;
}

struct Case {
    void (*change)(DimensionStyle&);
    double value;
    const char* text;
};

} // namespace

TEST(DimensionText, LengthsAfterTheirStyle)
{
    const Case cases[] = {
        {[](DimensionStyle&) {}, 12.3456, "12,35"},
        {[](DimensionStyle&) {}, 20.0, "20"},
        {[](DimensionStyle&) {}, 0.004, "0"},
        {[](DimensionStyle& s) { s.zin = 0; }, 20.0, "20,00"},
        {[](DimensionStyle& s) { s.zin = 12; }, 0.5, ",5"},
        {[](DimensionStyle& s) { s.dec = 0; }, 12.5, "12"},
        {[](DimensionStyle& s) { s.dec = 4; }, 12.3456, "12,3456"},
        {[](DimensionStyle& s) { s.dsep = 46; }, 12.3456, "12.35"},
        {[](DimensionStyle& s) { s.lfac = 2.0; }, 12.3456, "24,69"},
        {[](DimensionStyle& s) { s.lfac = -2.0; }, 12.3456, "24,69"},
        {[](DimensionStyle& s) { s.rnd = 0.25; }, 12.3456, "12,25"},
        {[](DimensionStyle& s) { s.post = L" mm"; }, 5.0, "5 mm"},
        {[](DimensionStyle& s) { s.post = L"<> mm"; }, 5.0, "5 mm"},
        {[](DimensionStyle& s) { s.post = L"L=<>"; }, 5.0, "L=5"},
        {[](DimensionStyle& s) { s.lunit = 1; }, 1234.5, "1,23E+03"},
        // feet and inches: 2 decimals are quarters of an inch, or hundredths
        {[](DimensionStyle& s) { s.lunit = 4; }, 18.5, "1'-6{\\H1x;\\S1/2;}\""},
        {[](DimensionStyle& s) { s.lunit = 4; }, 12.25, "1'-0{\\H1x;\\S1/4;}\""},
        {[](DimensionStyle& s) { s.lunit = 4; }, 24.0, "2'"},
        {[](DimensionStyle& s) { s.lunit = 4, s.zin = 1; }, 24.0, "2'-0\""},
        {[](DimensionStyle& s) { s.lunit = 4, s.zin = 2; }, 6.0, "0'-6\""},
        {[](DimensionStyle& s) { s.lunit = 4, s.frac = 2; }, 6.75, "6 3/4\""},
        {[](DimensionStyle& s) { s.lunit = 3, s.zin = 0, s.dsep = 46; }, 18.5, "1'-6.50\""},
        {[](DimensionStyle& s) { s.lunit = 5, s.frac = 1; }, 18.75, "18{\\H1x;\\S3#4;}"},
    };
    for (const auto& [change, value, text] : cases) {
        SCOPED_TRACE(text);
        DimensionStyle style = metric();
        change(style);
        EXPECT_EQ(host::toUtf8(host::measuredLength(value, style)), text);
    }
}

TEST(DimensionText, MarkOfTheKindYieldsToAPrefix)
{
    DimensionStyle style = metric();
    EXPECT_EQ(host::measuredLength(5.0, style, L"R"), L"R5");
    style.post = L"<>mm";
    EXPECT_EQ(host::measuredLength(5.0, style, L"R"), L"R5mm");
    style.post = L"rad <>";
    EXPECT_EQ(host::measuredLength(5.0, style, L"R"), L"rad 5");
}

TEST(DimensionText, AnglesAfterTheirStyle)
{
    constexpr double kDegree = 3.14159265358979323846 / 180.0;
    const Case cases[] = {
        {[](DimensionStyle&) {}, 90.0 * kDegree, "90%%d"},
        {[](DimensionStyle& s) { s.adec = 2; }, 30.5 * kDegree, "30,50%%d"},
        {[](DimensionStyle& s) { s.adec = -1, s.azin = 2; }, 30.5 * kDegree, "30,5%%d"},
        {[](DimensionStyle& s) { s.aunit = 1, s.adec = 4; }, 30.51 * kDegree, "30%%d30'36\""},
        {[](DimensionStyle& s) { s.aunit = 1, s.adec = 2; }, 29.9999 * kDegree, "30%%d0'"},
        {[](DimensionStyle& s) { s.aunit = 2; }, 90.0 * kDegree, "100g"},
        {[](DimensionStyle& s) { s.aunit = 3, s.adec = 2; }, 90.0 * kDegree, "1,57r"},
    };
    for (const auto& [change, value, text] : cases) {
        SCOPED_TRACE(text);
        DimensionStyle style = metric();
        change(style);
        EXPECT_EQ(host::toUtf8(host::measuredAngle(value, style)), text);
    }
}

TEST(DimensionText, WrittenTextMayHoldTheMeasuredOne)
{
    EXPECT_EQ(host::withMeasured(L"", L"5"), L"5");
    EXPECT_EQ(host::withMeasured(L"about <> m", L"5"), L"about 5 m");
    EXPECT_EQ(host::withMeasured(L"wall", L"5"), L"wall");
    EXPECT_EQ(host::withMeasured(L" ", L"5"), L"");
}
