#pragma once

#include <string>

// While the scope lasts, what the host draws can be opened again: a current layer that is locked
// gives way to the one named.
class UsableCurrentLayer {
public:
    explicit UsableCurrentLayer(const std::wstring& instead);
    ~UsableCurrentLayer();
    UsableCurrentLayer(const UsableCurrentLayer&) = delete;
    UsableCurrentLayer& operator=(const UsableCurrentLayer&) = delete;

private:
    std::wstring before_; // empty when the current layer was usable
};
