#include "bench/big_drawing.h"
#include "host/start/host_session.h"

#include <cstdio>
#include <cstdlib>

// kelmaro-big-drawing ENTITIES DRAWING [DESCRIPTION]
int main(int count, char** arguments)
{
    if (count < 3) {
        std::fprintf(stderr, "usage: kelmaro-big-drawing ENTITIES DRAWING [DESCRIPTION]\n");
        return 1;
    }
    const host::HostSession session;
    writeBigDrawing(arguments[2], std::strtoull(arguments[1], nullptr, 10));
    if (count > 3)
        writeBigDescription(arguments[3]);
    return 0;
}
