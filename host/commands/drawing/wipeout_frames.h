#pragma once

class AcDbDatabase;

namespace host {

// Whether the frames of a drawing's wipeouts show, as its ACAD_WIPEOUT_VARS keeps it.
enum class WipeoutFrames { hidden = 0, shown = 1, shownButNotPlotted = 2 };
void setWipeoutFrames(AcDbDatabase& database, WipeoutFrames frames);

} // namespace host
