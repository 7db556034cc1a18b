#pragma once

#include <cstdint>

// A colour as entities carry it: by block (index 0), by layer (256), an index, true colour, or
// none.
class AcCmColor {
public:
    enum ColorMethod {
        kByLayer = 0xC0,
        kByBlock = 0xC1,
        kByColor = 0xC2,
        kByACI = 0xC3,
        kNone = 0xC8
    };

    static constexpr std::uint16_t kByBlockIndex = 0;
    static constexpr std::uint16_t kByLayerIndex = 256;
    static constexpr std::uint16_t kNoneIndex = 257;

    AcCmColor() = default;

    ColorMethod colorMethod() const { return method_; }
    bool isByLayer() const { return method_ == kByLayer; }
    bool isByBlock() const { return method_ == kByBlock; }
    bool isByColor() const { return method_ == kByColor; }
    bool isByACI() const { return method_ == kByACI; }
    bool isNone() const { return method_ == kNone; }

    // 0 by block, 256 by layer, 257 none; of a true colour the index kept beside it, else the
    // nearest one.
    std::uint16_t colorIndex() const { return index_; }
    // The palette's colour for an index.
    std::uint8_t red() const { return red_; }
    std::uint8_t green() const { return green_; }
    std::uint8_t blue() const { return blue_; }

    void setColorIndex(std::uint16_t index);
    void setRGB(std::uint8_t red, std::uint8_t green,
                std::uint8_t blue); // index becomes the nearest
    void setNone();
    // The index that a file keeps beside a true colour.
    void setStoredIndex(std::uint16_t index) { index_ = index; }

    // Equal methods and equal values; of true colours the index does not count.
    bool operator==(const AcCmColor& other) const;

private:
    explicit AcCmColor(std::uint16_t index);

    ColorMethod method_ = kByLayer;
    std::uint16_t index_ = kByLayerIndex;
    std::uint8_t red_ = 0;
    std::uint8_t green_ = 0;
    std::uint8_t blue_ = 0;
};

namespace host {

struct Rgb {
    std::uint8_t red, green, blue;
};

// The palette's colour of an index from 1 to 255, and the nearest index to a colour.
Rgb colorOfIndex(int index);
int nearestIndex(Rgb color);

// The index that a 62 holds. Its sign is a layer's and tells that it is off.
std::uint16_t colorIndexOfTag(int value);

} // namespace host
