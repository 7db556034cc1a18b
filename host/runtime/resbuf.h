#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <vector>

// Result codes of prompts and of commands.
inline constexpr int RTNONE = 5000;
inline constexpr int RTREAL = 5001;
inline constexpr int RTPOINT = 5002; // two-dimensional
inline constexpr int RTSHORT = 5003;
inline constexpr int RTANG = 5004;
inline constexpr int RTSTR = 5005;
inline constexpr int RTENAME = 5006;
inline constexpr int RTPICKS = 5007;
inline constexpr int RTORINT = 5008;
inline constexpr int RT3DPOINT = 5009;
inline constexpr int RTLONG = 5010;
inline constexpr int RTVOID = 5014;
inline constexpr int RTLB = 5016;
inline constexpr int RTLE = 5017;
inline constexpr int RTDXF0 = 5020;
inline constexpr int RTT = 5021;
inline constexpr int RTNORM = 5100;
inline constexpr int RTERROR = -5001;
inline constexpr int RTCAN = -5002;
inline constexpr int RTREJ = -5003;
inline constexpr int RTFAIL = -5004;
inline constexpr int RTKWORD = -5005;

using ads_real = double;
using ads_point = std::array<double, 3>;
using ads_name =
    std::array<std::int64_t, 2>; // an entity's or a selection set's name; zero is no name

// One typed value: an argument, an answer, a system variable's value or one item of an xrecord,
// where `restype` is the group code. Only the member that the type names is meaningful.
struct resbuf {
    struct Value {
        std::int16_t rint = 0;
        std::int32_t rlong = 0;
        std::int64_t mnInt64 = 0;
        double rreal = 0.0;
        ads_point rpoint{};
        std::wstring rstring;              // also handles, in hexadecimal
        std::vector<std::uint8_t> rbinary; // 310 to 319, 1004
        ads_name rlname{};
    };

    short restype = static_cast<short>(RTNONE);
    Value resval;
};

// Items in order; an xrecord's contents, the arguments of a command.
using ResbufChain = std::vector<resbuf>;
