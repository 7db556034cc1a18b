#include "host/edit/variable_table.h"

#include "host/edit/command_engine.h"
#include "host/edit/document.h"
#include "host/files/host_names.h"
#include "host/files/paths.h"
#include "host/text/case_mapping.h"

#include <algorithm>
#include <array>
#include <chrono>
#include <ctime>

namespace host {

namespace {

using enum VariableHome;

constexpr double kUnixEpochAsJulianDay = 2440587.5;
constexpr double kSecondsOfDay = 86400.0;

std::tm localTime(std::time_t now)
{
    std::tm local{};
    localtime_r(&now, &local);
    return local;
}

// Days of the Julian calendar count in local time; the fraction is the part of the day since
// midnight.
void computeDate(resbuf& value)
{
    const std::time_t now = std::time(nullptr);
    const std::tm local = localTime(now);
    const double seconds = static_cast<double>(now) + static_cast<double>(local.tm_gmtoff);
    value.resval.rreal = kUnixEpochAsJulianDay + 0.5 + seconds / kSecondsOfDay;
}

// 20260131.235959 for the last second of that day.
void computeCalendarDate(resbuf& value)
{
    const std::tm t = localTime(std::time(nullptr));
    value.resval.rreal = (t.tm_year + 1900) * 10000.0 + (t.tm_mon + 1) * 100.0 + t.tm_mday +
                         t.tm_hour / 100.0 + t.tm_min / 10000.0 + t.tm_sec / 1000000.0;
}

void computeCommandNames(resbuf& value)
{
    value.resval.rstring = engineExists() ? engine().commandNames() : std::wstring();
}

void computeCommandActivity(resbuf& value)
{
    value.resval.rint = static_cast<std::int16_t>(engineExists() ? engine().commandActivity() : 0);
}

std::wstring documentPath()
{
    const std::wstring name = curDoc() ? curDoc()->fileName() : std::wstring();
    return shownPath(std::wstring_view(name));
}

void computeDrawingName(resbuf& value)
{
    value.resval.rstring = fileNameOf(documentPath());
}

void computeDrawingPrefix(resbuf& value)
{
    std::wstring folder = folderOf(documentPath());
    if (folder.empty())
        folder = shownPath(std::filesystem::current_path());
    value.resval.rstring = folder.ends_with(L'/') ? folder : folder + L'/';
}

void computeDrawingTitled(resbuf& value)
{
    value.resval.rint = curDoc() && curDoc()->isNamedDrawing() ? 1 : 0;
}

void computeModified(resbuf& value)
{
    value.resval.rint = curDoc() && curDoc()->database()->isModified() ? 1 : 0;
}

void computeWritable(resbuf& value)
{
    value.resval.rint = curDoc() && curDoc()->isReadOnly() ? 0 : 1;
}

void computeUserName(resbuf& value)
{
    value.resval.rstring = userName();
}

constexpr VariableRow shortOf(const wchar_t* name, VariableHome home, double value, double least,
                              double greatest, int code = 70)
{
    return {name, home, RTSHORT, code, false, value, L"", least, greatest, nullptr};
}
constexpr VariableRow realOf(const wchar_t* name, VariableHome home, double value, int code = 40)
{
    return {.name = name, .home = home, .type = RTREAL, .code = code, .number = value};
}
constexpr VariableRow positiveOf(const wchar_t* name, VariableHome home, double value,
                                 int code = 40)
{
    return {.name = name,
            .home = home,
            .type = RTREAL,
            .code = code,
            .number = value,
            .least = std::numeric_limits<double>::min()};
}
constexpr VariableRow textOf(const wchar_t* name, VariableHome home, const wchar_t* value,
                             int code = 1)
{
    return {.name = name, .home = home, .type = RTSTR, .code = code, .text = value};
}
constexpr VariableRow pointOf(const wchar_t* name, VariableHome home, int code = 10)
{
    return {.name = name, .home = home, .type = RT3DPOINT, .code = code};
}
constexpr VariableRow computedAs(const wchar_t* name, int type, void (*compute)(resbuf&))
{
    return {.name = name,
            .home = computed,
            .type = type,
            .code = 0,
            .readOnly = true,
            .compute = compute};
}
constexpr VariableRow fixedShort(const wchar_t* name, double value)
{
    return {.name = name, .home = program, .readOnly = true, .number = value};
}
constexpr VariableRow fixedText(const wchar_t* name, const wchar_t* value)
{
    return {.name = name, .home = program, .type = RTSTR, .readOnly = true, .text = value};
}

// In alphabetical order.
constexpr auto kRows = std::to_array<VariableRow>({
    realOf(L"ANGBASE", drawing, 0.0, 50),
    shortOf(L"ANGDIR", drawing, 0, 0, 1),
    shortOf(L"APERTURE", program, 10, 1, 50),
    shortOf(L"ATTDIA", program, 0, 0, 1),
    shortOf(L"ATTMODE", drawing, 1, 0, 2),
    shortOf(L"ATTREQ", program, 1, 0, 1),
    shortOf(L"AUNITS", drawing, 0, 0, 4),
    shortOf(L"AUPREC", drawing, 0, 0, 8),
    shortOf(L"BLIPMODE", program, 0, 0, 1),
    computedAs(L"CDATE", RTREAL, computeCalendarDate),
    shortOf(L"CECOLOR", drawing, 256, 0, 256, 62),
    positiveOf(L"CELTSCALE", drawing, 1.0),
    textOf(L"CELTYPE", drawing, L"ByLayer", 6),
    shortOf(L"CELWEIGHT", drawing, -1, -3, 211, 370),
    realOf(L"CIRCLERAD", program, 0.0),
    textOf(L"CLAYER", drawing, L"0", 8),
    computedAs(L"CMDACTIVE", RTSHORT, computeCommandActivity),
    shortOf(L"CMDDIA", program, 1, 0, 1),
    shortOf(L"CMDECHO", program, 1, 0, 1),
    computedAs(L"CMDNAMES", RTSTR, computeCommandNames),
    textOf(L"CMLEADERSTYLE", program, L"Standard"),
    shortOf(L"CMLJUST", drawing, 0, 0, 2),
    realOf(L"CMLSCALE", drawing, 20.0),
    textOf(L"CMLSTYLE", drawing, L"Standard", 2),
    shortOf(L"COPYMODE", program, 0, 0, 1),
    fixedText(L"CTAB", L"Model"),
    fixedShort(L"CVPORT", 2),
    computedAs(L"DATE", RTREAL, computeDate),
    computedAs(L"DBMOD", RTSHORT, computeModified),
    positiveOf(L"DIMSCALE", drawing, 1.0),
    textOf(L"DIMSTYLE", drawing, L"Standard", 2),
    shortOf(L"DRAGMODE", program, 2, 0, 2),
    computedAs(L"DWGNAME", RTSTR, computeDrawingName),
    computedAs(L"DWGPREFIX", RTSTR, computeDrawingPrefix),
    computedAs(L"DWGTITLED", RTSHORT, computeDrawingTitled),
    realOf(L"ELEVATION", drawing, 0.0),
    shortOf(L"EXPERT", program, 0, 0, 5),
    shortOf(L"FILEDIA", program, 1, 0, 1),
    realOf(L"FILLETRAD", drawing, 0.0),
    shortOf(L"FILLMODE", drawing, 1, 0, 1),
    shortOf(L"GRIDMODE", program, 0, 0, 1),
    fixedShort(L"HANDLES", 1),
    shortOf(L"HIGHLIGHT", program, 1, 0, 1),
    textOf(L"HPNAME", program, L"ANSI31"),
    realOf(L"HPANG", program, 0.0),
    shortOf(L"HPASSOC", program, 1, 0, 1),
    shortOf(L"HPDOUBLE", program, 0, 0, 1),
    shortOf(L"HPISLANDDETECTION", program, 0, 0, 2),
    positiveOf(L"HPSCALE", program, 1.0),
    shortOf(L"HPSEPARATE", program, 0, 0, 1),
    positiveOf(L"HPSPACE", program, 1.0),
    textOf(L"INSNAME", program, L""),
    shortOf(L"INSUNITS", drawing, 0, 0, 24),
    pointOf(L"LASTPOINT", program),
    fixedText(L"LOCALE", L"ENU"),
    computedAs(L"LOGINNAME", RTSTR, computeUserName),
    positiveOf(L"LTSCALE", drawing, 1.0),
    shortOf(L"LUNITS", drawing, 2, 1, 5),
    shortOf(L"LUPREC", drawing, 4, 0, 8),
    shortOf(L"LWDISPLAY", drawing, 0, 0, 1, 290),
    shortOf(L"MEASUREMENT", drawing, 0, 0, 1),
    shortOf(L"MENUECHO", program, 0, 0, 15),
    shortOf(L"MIRRTEXT", drawing, 0, 0, 1),
    shortOf(L"NOMUTT", program, 0, 0, 1),
    realOf(L"OFFSETDIST", program, 1.0),
    shortOf(L"ORTHOMODE", drawing, 0, 0, 1),
    shortOf(L"OSMODE", program, 0, 0, 32767),
    shortOf(L"PDMODE", drawing, 0, 0, 100),
    realOf(L"PDSIZE", drawing, 0.0),
    shortOf(L"PEDITACCEPT", program, 0, 0, 1),
    shortOf(L"PICKADD", program, 1, 0, 2),
    shortOf(L"PICKAUTO", program, 1, 0, 1),
    shortOf(L"PICKBOX", program, 3, 0, 50),
    shortOf(L"PICKDRAG", program, 0, 0, 2),
    shortOf(L"PICKFIRST", program, 1, 0, 1),
    fixedText(L"PLATFORM", L"Linux"),
    shortOf(L"PLINETYPE", program, 2, 0, 2),
    realOf(L"PLINEWID", drawing, 0.0),
    shortOf(L"POLYSIDES", program, 4, 3, 1024),
    shortOf(L"PSLTSCALE", drawing, 1, 0, 1),
    shortOf(L"REGENMODE", drawing, 1, 0, 1),
    shortOf(L"SNAPMODE", program, 0, 0, 1),
    shortOf(L"SORTENTS", drawing, 127, 0, 127, 280),
    shortOf(L"SPLDEGREE", program, 3, 1, 10),
    shortOf(L"SPLFRAME", drawing, 0, 0, 1),
    shortOf(L"SPLMETHOD", program, 0, 0, 1),
    fixedText(L"SYSCODEPAGE", L"UTF-8"),
    positiveOf(L"TEXTSIZE", drawing, 2.5),
    textOf(L"TEXTSTYLE", drawing, L"Standard", 7),
    realOf(L"THICKNESS", drawing, 0.0),
    shortOf(L"TILEMODE", drawing, 1, 0, 1),
    shortOf(L"UCSICON", program, 3, 0, 3),
    shortOf(L"USERI1", drawing, 0, -32768, 32767),
    shortOf(L"USERI2", drawing, 0, -32768, 32767),
    shortOf(L"USERI3", drawing, 0, -32768, 32767),
    shortOf(L"USERI4", drawing, 0, -32768, 32767),
    shortOf(L"USERI5", drawing, 0, -32768, 32767),
    realOf(L"USERR1", drawing, 0.0),
    realOf(L"USERR2", drawing, 0.0),
    realOf(L"USERR3", drawing, 0.0),
    realOf(L"USERR4", drawing, 0.0),
    realOf(L"USERR5", drawing, 0.0),
    textOf(L"USERS1", program, L""),
    textOf(L"USERS2", program, L""),
    textOf(L"USERS3", program, L""),
    textOf(L"USERS4", program, L""),
    textOf(L"USERS5", program, L""),
    fixedShort(L"WORLDUCS", 1),
    computedAs(L"WRITESTAT", RTSHORT, computeWritable),
});

constexpr std::wstring_view kReadOnlyHeader[] = {
    L"ACADVER",   L"ACADMAINTVER", L"DWGCODEPAGE", L"EXTMAX",    L"EXTMIN",      L"FINGERPRINTGUID",
    L"HANDLING",  L"HANDSEED",     L"PEXTMAX",     L"PEXTMIN",   L"TDCREATE",    L"TDINDWG",
    L"TDUCREATE", L"TDUPDATE",     L"TDUSRTIMER",  L"TDUUPDATE", L"VERSIONGUID",
};

} // namespace

std::span<const VariableRow> variableRows()
{
    return kRows;
}

const VariableRow* findVariableRow(std::wstring_view name)
{
    const auto found = std::ranges::find_if(
        kRows, [&](const VariableRow& row) { return equalNoCase(row.name, name); });
    return found == kRows.end() ? nullptr : &*found;
}

bool isReadOnlyHeaderVariable(std::wstring_view name)
{
    return std::ranges::any_of(kReadOnlyHeader,
                               [&](std::wstring_view each) { return equalNoCase(each, name); });
}

} // namespace host
