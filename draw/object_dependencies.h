#pragma once

#include "description/description.h"

#include <set>
#include <string_view>

// Brings what an object names and the working drawing lacks from the description's files: block,
// dimension style, layer, linetype, multileader and multiline style, pattern, text style. Says
// nothing. False when some name is neither in the drawing nor in the description's files (nothing
// is then loaded but blocks that are whole files), or when a file cannot be read. A name that its
// file turns out not to have is no failure.
bool LoadObjectDependencies(const GraphicProps& props, const Description& description);

// The same by the object's name, without regard to case; false where there is none.
bool LoadObjectDependencies(std::wstring_view name, const Description& description);

// The same for the many entities of one command: an object whose dependencies are there is not
// asked about again.
class LoadedDependencies {
public:
    bool load(const ObjectDef& object, const Description& description);

private:
    std::set<const ObjectDef*> loaded_;
};
