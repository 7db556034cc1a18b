#pragma once

#include "description/description.h"

#include <memory>

// The plug-in's texts while a command runs: the resource handle, pushed for the scope.
class ResourceScope {
public:
    ResourceScope();
    ~ResourceScope();
    ResourceScope(const ResourceScope&) = delete;
    ResourceScope& operator=(const ResourceScope&) = delete;
};

// What every command that needs a description begins with, before any prompt. Tells when no file is
// loaded. Shares the description, so that it outlives whatever the command starts.
class CommandFrame {
public:
    CommandFrame();

    explicit operator bool() const { return description_ != nullptr; }
    Description& description() const { return *description_; }

private:
    ResourceScope resources_;
    std::shared_ptr<Description> description_;
};

// The store of the current drawing; made there on first need.
AcDbObjectId currentStore();
