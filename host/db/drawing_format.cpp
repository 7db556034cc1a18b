#include "host/db/drawing_format.h"

#include <cassert>

namespace host {

namespace {

DrawingFormat* formatInUse = nullptr;

}

DrawingFormat& drawingFormat()
{
    assert(formatInUse);
    return *formatInUse;
}

void setDrawingFormat(DrawingFormat* format)
{
    formatInUse = format;
}

} // namespace host
