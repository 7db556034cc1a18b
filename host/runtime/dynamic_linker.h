#pragma once

#include "host/runtime/app_message.h"

#include <filesystem>
#include <memory>
#include <string>
#include <vector>

// Loads modules, tells them that they are loaded, and tells them again before they go.
// An application id is the packet that a module gets with its messages; it holds while the module
// is loaded.
class AcRxDynamicLinker {
public:
    AcRxDynamicLinker();
    ~AcRxDynamicLinker(); // modules still loaded stay in memory and are told nothing
    AcRxDynamicLinker(const AcRxDynamicLinker&) = delete;
    AcRxDynamicLinker& operator=(const AcRxDynamicLinker&) = delete;

    // Called by modules. A module begins locked: it is not unloaded before the program ends.
    // False for an id that no loaded module has.
    bool unlockApplication(void* appId);
    bool registerAppMDIAware(void* appId);
    bool isApplicationMDIAware(void* appId) const;

    // Fails when the file is no module, lacks one of the two exports, was built for another
    // interface version, or answers its first message with anything but kRetOK; nothing of it stays
    // loaded then. The error is one line without a line end and names the file.
    bool loadModule(const std::filesystem::path& path, std::wstring& error);

    // Refused while the module is locked. A module that answers kRetError stays loaded.
    bool unloadModule(const std::filesystem::path& path, std::wstring& error);

    // For the end of the program: every module, the last loaded first, locked or not.
    void unloadAll();

    bool isLoaded(const std::filesystem::path& path) const;
    std::vector<std::filesystem::path> loadedModules() const; // in the order of loading

private:
    struct Module;

    Module* byId(void* appId) const;
    Module* byPath(const std::filesystem::path& path) const;

    std::vector<std::unique_ptr<Module>> modules_;
};

AcRxDynamicLinker* acrxDynamicLinker();
