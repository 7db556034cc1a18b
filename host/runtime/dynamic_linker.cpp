#include "host/runtime/dynamic_linker.h"

#include <algorithm>
#include <cstdio>
#include <dlfcn.h>
#include <exception>
#include <string_view>
#include <system_error>

namespace fs = std::filesystem;

struct AcRxDynamicLinker::Module {
    fs::path path; // links resolved, so that one file is one module
    void* library = nullptr;
    AcRxEntryPoint entryPoint = nullptr;
    bool locked = true;
    bool mdiAware = false;
};

namespace {

fs::path resolved(const fs::path& path)
{
    std::error_code failure;
    fs::path result = fs::weakly_canonical(fs::absolute(path, failure), failure);
    return failure ? path : result;
}

// Texts of the system are UTF-8 or ASCII; this room stands below the one that knows encodings, and
// the path conversion of the standard library is the same one.
std::wstring wide(const std::string& text)
{
    try {
        return fs::path(std::u8string(text.begin(), text.end())).wstring();
    } catch (const std::exception&) {
        return std::wstring(text.begin(), text.end());
    }
}

std::wstring cannot(const char* action, const fs::path& path, std::string_view reason)
{
    return wide(std::string("cannot ") + action + " '" + path.string() +
                "': " + std::string(reason));
}

// Answers kRetError and tells why when the module throws.
AcRx::AppRetCode send(AcRxEntryPoint entryPoint, AcRx::AppMsgCode message, void* packet,
                      std::string& thrown)
{
    try {
        return entryPoint(message, packet);
    } catch (const std::exception& exception) {
        thrown = exception.what();
    } catch (...) {
        thrown = "unknown exception";
    }
    return AcRx::kRetError;
}

std::string lastLinkError()
{
    const char* text = dlerror();
    return text ? text : "unknown reason";
}

} // namespace

AcRxDynamicLinker::AcRxDynamicLinker() = default;
AcRxDynamicLinker::~AcRxDynamicLinker() = default;

AcRxDynamicLinker::Module* AcRxDynamicLinker::byId(void* appId) const
{
    const auto found =
        std::find_if(modules_.begin(), modules_.end(),
                     [&](const std::unique_ptr<Module>& module) { return module.get() == appId; });
    return found == modules_.end() ? nullptr : found->get();
}

AcRxDynamicLinker::Module* AcRxDynamicLinker::byPath(const fs::path& path) const
{
    const fs::path wanted = resolved(path);
    const auto found =
        std::find_if(modules_.begin(), modules_.end(),
                     [&](const std::unique_ptr<Module>& module) { return module->path == wanted; });
    return found == modules_.end() ? nullptr : found->get();
}

bool AcRxDynamicLinker::unlockApplication(void* appId)
{
    Module* module = byId(appId);
    if (module)
        module->locked = false;
    return module != nullptr;
}

bool AcRxDynamicLinker::registerAppMDIAware(void* appId)
{
    Module* module = byId(appId);
    if (module)
        module->mdiAware = true;
    return module != nullptr;
}

bool AcRxDynamicLinker::isApplicationMDIAware(void* appId) const
{
    const Module* module = byId(appId);
    return module && module->mdiAware;
}

bool AcRxDynamicLinker::isLoaded(const fs::path& path) const
{
    return byPath(path) != nullptr;
}

std::vector<fs::path> AcRxDynamicLinker::loadedModules() const
{
    std::vector<fs::path> paths;
    for (const std::unique_ptr<Module>& module : modules_)
        paths.push_back(module->path);
    return paths;
}

bool AcRxDynamicLinker::loadModule(const fs::path& path, std::wstring& error)
{
    error.clear();
    if (byPath(path)) {
        error = cannot("load", path, "it is loaded already");
        return false;
    }

    auto owned = std::make_unique<Module>();
    Module* module = owned.get();
    module->path = resolved(path);
    module->library = dlopen(module->path.c_str(), RTLD_NOW | RTLD_LOCAL);
    if (!module->library) {
        error = cannot("load", path, lastLinkError());
        return false;
    }
    const auto refuse = [&](std::string_view reason) {
        error = cannot("load", path, reason);
        dlclose(module->library);
        return false;
    };

    module->entryPoint = reinterpret_cast<AcRxEntryPoint>(dlsym(module->library, "acrxEntryPoint"));
    if (!module->entryPoint)
        return refuse("it exports no acrxEntryPoint");
    const auto apiVersion =
        reinterpret_cast<AcRxApiVersion>(dlsym(module->library, "acrxGetApiVersion"));
    if (!apiVersion)
        return refuse("it exports no acrxGetApiVersion");
    if (const int version = apiVersion(); version != kAcRxApiVersion) {
        char text[96];
        std::snprintf(text, sizeof text, "it is built for interface 0x%X, the host has 0x%X",
                      static_cast<unsigned>(version), static_cast<unsigned>(kAcRxApiVersion));
        return refuse(text);
    }

    // The module asks for its own entry while it handles the message.
    modules_.push_back(std::move(owned));
    std::string thrown;
    if (send(module->entryPoint, AcRx::kInitAppMsg, module, thrown) == AcRx::kRetOK)
        return true;
    refuse(thrown.empty() ? "it refused to start" : thrown);
    std::erase_if(modules_, [&](const auto& one) { return one.get() == module; });
    return false;
}

bool AcRxDynamicLinker::unloadModule(const fs::path& path, std::wstring& error)
{
    error.clear();
    Module* module = byPath(path);
    std::string thrown;
    if (!module)
        error = cannot("unload", path, "it is not loaded");
    else if (module->locked)
        error = cannot("unload", path, "it is locked");
    else if (send(module->entryPoint, AcRx::kUnloadAppMsg, module, thrown) != AcRx::kRetOK)
        error = cannot("unload", path, thrown.empty() ? "it refused to go" : thrown);
    if (!error.empty())
        return false;

    dlclose(module->library);
    std::erase_if(modules_, [&](const auto& one) { return one.get() == module; });
    return true;
}

void AcRxDynamicLinker::unloadAll()
{
    while (!modules_.empty()) {
        Module* module = modules_.back().get();
        std::string thrown;
        send(module->entryPoint, AcRx::kUnloadAppMsg, module, thrown);
        dlclose(module->library);
        std::erase_if(modules_, [&](const auto& one) { return one.get() == module; });
    }
}

AcRxDynamicLinker* acrxDynamicLinker()
{
    static AcRxDynamicLinker linker;
    return &linker;
}
