#pragma once

#include <string>

// What lower rooms tell those who show lists of objects. A listener hears only what it overrides.
class SessionListener {
public:
    virtual ~SessionListener() = default;
    virtual void objectDrawn(const std::wstring& /*name*/) {}
    virtual void entitiesClassified(const std::wstring& /*name*/) {}
};
