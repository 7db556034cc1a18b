#pragma once

#include <gtest/gtest.h>

#include <cstdio>
#include <filesystem>
#include <fstream>
#include <string>
#include <unistd.h>

// What another program, the distribution's ezdxf, says of a drawing.
namespace host::test {

inline std::string outputOf(const std::string& command)
{
    std::string output;
    if (FILE* const pipe = ::popen(command.c_str(), "r")) {
        char part[512];
        while (std::fgets(part, sizeof part, pipe))
            output += part;
        ::pclose(pipe);
    }
    return output;
}

inline bool proofAvailable()
{
    static const bool available =
        outputOf("/usr/bin/python3 -c 'import ezdxf; print(1)' 2>/dev/null") == "1\n";
    return available;
}

// "AC1032 5 0 0": version, entities in model space, errors and fixes of its audit; what it fails
// with, where it cannot read the drawing.
inline std::string proofOf(const std::string& bytes)
{
    static int count = 0;
    const std::filesystem::path base =
        std::filesystem::temp_directory_path() /
        ("proof_" + std::to_string(::getpid()) + "_" + std::to_string(++count));
    const std::string drawing = base.string() + ".dxf";
    const std::string script = base.string() + ".py";
    std::ofstream(drawing, std::ios::binary) << bytes;
    std::ofstream(script)
        << "import sys, ezdxf\n"
           "try:\n"
           "    d = ezdxf.readfile(sys.argv[1])\n"
           "    a = d.audit()\n"
           "    print(d.dxfversion, len(d.modelspace()), len(a.errors), len(a.fixes))\n"
           "    for e in a.errors + a.fixes: print(e.message)\n"
           "except Exception as e:\n"
           "    print(type(e).__name__, e)\n";
    const std::string output = outputOf("/usr/bin/python3 " + script + " " + drawing + " 2>&1");
    std::filesystem::remove(drawing);
    std::filesystem::remove(script);
    return output;
}

} // namespace host::test
