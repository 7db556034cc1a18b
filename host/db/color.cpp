#include "host/db/color.h"

#include <algorithm>
#include <array>
#include <cassert>
#include <cstdlib>
#include <limits>

namespace host {

namespace {

constexpr int kColors = 256;

// 1 to 9 are the named colours and two greys. From 10 to 249 the tens are hues, 15 degrees apart
// from red on; the even digits are five levels of brightness, each odd one behind it the same half
// way to grey. 250 to 255 are greys. Parts are cut off, not rounded.
class Palette {
public:
    constexpr Palette()
    {
        constexpr Rgb first[] = {
            {0, 0, 0},   {255, 0, 0},   {255, 255, 0},   {0, 255, 0},     {0, 255, 255},
            {0, 0, 255}, {255, 0, 255}, {255, 255, 255}, {128, 128, 128}, {192, 192, 192},
        };
        constexpr std::uint8_t greys[] = {51, 91, 132, 173, 214, 255};
        for (int i = 0; i < 10; ++i)
            colors_[static_cast<std::size_t>(i)] = first[i];
        for (int i = 10; i < 250; ++i)
            colors_[static_cast<std::size_t>(i)] = ofHue(i / 10 - 1, i % 10 / 2, i % 2 == 1);
        for (int i = 0; i < 6; ++i)
            colors_[static_cast<std::size_t>(250 + i)] = {greys[i], greys[i], greys[i]};
    }

    constexpr Rgb operator[](int index) const { return colors_[static_cast<std::size_t>(index)]; }

private:
    static constexpr Rgb ofHue(int hue, int level, bool pale)
    {
        // full brightness is 255; thousandths keep the steps exact
        constexpr int brightness[] = {1000, 800, 600, 500, 300};
        const int sector = hue / 4;
        const int rising = sector % 2 == 0 ? hue % 4 : 4 - hue % 4; // quarters of the middle part
        constexpr int kHigh = 4;
        int quarters[3] = {};
        // which part is highest and which one lies between, sector by sector from red
        constexpr int high[] = {0, 1, 1, 2, 2, 0};
        constexpr int middle[] = {1, 0, 2, 1, 0, 2};
        quarters[high[sector]] = kHigh;
        quarters[middle[sector]] = rising;
        std::uint8_t parts[3] = {};
        for (int i = 0; i < 3; ++i) {
            const int eighths = pale ? 4 + quarters[i] : 2 * quarters[i];
            parts[i] = static_cast<std::uint8_t>(255 * brightness[level] * eighths / 8000);
        }
        return {parts[0], parts[1], parts[2]};
    }

    std::array<Rgb, kColors> colors_{};
};

constexpr Palette kPalette;

constexpr int square(int value)
{
    return value * value;
}

} // namespace

Rgb colorOfIndex(int index)
{
    assert(index > 0 && index < kColors);
    return kPalette[index];
}

int nearestIndex(Rgb color)
{
    int best = 1;
    int least = std::numeric_limits<int>::max();
    for (int i = 1; i < kColors; ++i) {
        const Rgb entry = kPalette[i];
        const int distance = square(entry.red - color.red) + square(entry.green - color.green) +
                             square(entry.blue - color.blue);
        if (distance < least) {
            least = distance;
            best = i;
        }
    }
    return best;
}

std::uint16_t colorIndexOfTag(int value)
{
    const std::int64_t index = std::abs(std::int64_t{value});
    return static_cast<std::uint16_t>(std::min<std::int64_t>(index, AcCmColor::kNoneIndex));
}

} // namespace host

void AcCmColor::setColorIndex(std::uint16_t index)
{
    *this = AcCmColor(index);
}

void AcCmColor::setRGB(std::uint8_t red, std::uint8_t green, std::uint8_t blue)
{
    method_ = kByColor;
    red_ = red;
    green_ = green;
    blue_ = blue;
    index_ = static_cast<std::uint16_t>(host::nearestIndex({red, green, blue}));
}

void AcCmColor::setNone()
{
    setColorIndex(kNoneIndex);
}

AcCmColor::AcCmColor(std::uint16_t index)
    : method_(index == kByBlockIndex   ? kByBlock
              : index == kByLayerIndex ? kByLayer
              : index > kByLayerIndex  ? kNone
                                       : kByACI),
      index_(index > kByLayerIndex ? kNoneIndex : index)
{
    if (method_ != kByACI)
        return;
    const host::Rgb color = host::colorOfIndex(index);
    red_ = color.red;
    green_ = color.green;
    blue_ = color.blue;
}

bool AcCmColor::operator==(const AcCmColor& other) const
{
    if (method_ != other.method_)
        return false;
    if (method_ != kByColor)
        return index_ == other.index_;
    return red_ == other.red_ && green_ == other.green_ && blue_ == other.blue_;
}
