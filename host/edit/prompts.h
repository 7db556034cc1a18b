#pragma once

#include "host/runtime/resbuf.h"

#include <string>
#include <string_view>

// Questions on the command line. They wait until the user has answered and answer RTNORM, RTNONE
// (Enter alone), RTKWORD (a keyword: acedGetInput tells which), RTCAN, or RTERROR outside of a
// command. An answer that is none of what was asked for is refused with a text and asked again.

// Bits and keywords of the next question; each question forgets them.
enum InitGetBits : int {
    RSG_NONULL = 1,  // Enter alone is no answer
    RSG_NOZERO = 2,  // nor is zero
    RSG_NONEG = 4,   // nor a number below zero
    RSG_OTHER = 128, // any text counts as a keyword
};
// Keywords stand apart by blanks; what must be typed is in capitals ("Yes No", "eXit") or behind a
// comma ("LTYPE,LT"). Names behind a lone "_" are what is answered, one for each keyword.
int acedInitGet(int bits, const wchar_t* keywords);

// cronly 1: blanks belong to the answer, only a line end ends it. Enter alone gives an empty text.
int acedGetString(int cronly, const wchar_t* prompt, std::wstring& result);
int acedGetKword(const wchar_t* prompt, std::wstring& result); // the keyword, spelled in full
int acedGetInt(const wchar_t* prompt, int& result);
int acedGetReal(const wchar_t* prompt, double& result);

// Points in world coordinates: x,y or x,y,z; @ before them, or @dist<angle, counts from LASTPOINT.
int acedGetPoint(const ads_point* base, const wchar_t* prompt, ads_point& result);
int acedGetCorner(const ads_point& base, const wchar_t* prompt, ads_point& result);
// A number, or two points (one with a base).
int acedGetDist(const ads_point* base, const wchar_t* prompt, double& result);
// Radians; typed in degrees, or shown by two points (one with a base).
int acedGetAngle(const ads_point* base, const wchar_t* prompt, double& result);
int acedGetOrient(const ads_point* base, const wchar_t* prompt, double& result);

// The keyword, or other text, that the last question answered with RTKWORD.
int acedGetInput(std::wstring& keyword);

// One entity by a point on it, by L, or by its handle; RTERROR when there was none at the point.
int acedEntSel(const wchar_t* prompt, ads_name& entity, ads_point& point);
