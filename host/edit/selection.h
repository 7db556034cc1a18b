#pragma once

#include "host/edit/entity_search.h"

#include <string_view>

namespace host {

// Asks until Enter: a point (what lies under it), W and C by two corners, WP, CP, F, BOX, ALL, L,
// P, (handent "2F"), R and A for what is to be taken out or added, U, SI, and ? for a list of
// these. RTNORM with what was selected, in its order, each once (nothing, too); RTCAN; RTERROR
// outside of a command.
int selectObjects(std::vector<AcDbObjectId>& selected, const ResbufChain* filter = nullptr,
                  std::wstring_view prompt = L"Select objects: ");

} // namespace host
