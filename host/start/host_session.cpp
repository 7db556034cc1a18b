#include "host/start/host_session.h"

#include "host/commands/native_commands.h"
#include "host/edit/environment.h"
#include "host/files/support_files.h"
#include "host/io/dxf_format.h"
#include "host/runtime/registry.h"

namespace host {

HostSession::HostSession(SessionOptions options)
    : profile_(options.profile.empty() ? UserProfile::defaultFolder() : options.profile),
      format_(makeDxfFormat()), engine_(std::make_unique<CommandEngine>(std::move(options.output)))
{
    setDrawingFormat(format_.get());
    setEnvironment(&profile_, options.supportFolder);
    ensureSupportFiles(profile_.supportFolder());
    acrxSysRegistry()->atPut(L"ACAD_REGISTERED_COMMANDS", &commands_);
    acrxSysRegistry()->atPut(L"AcEditor", &editor_);
    setEngine(engine_.get());
    registerNativeCommands(commands_);
    if (options.newDrawing)
        documents().newDocument();
}

HostSession::~HostSession()
{
    // running commands are cancelled while everything they use is still there
    engine_->abandonCommands();
    documents().closeAll();
    setEngine(nullptr);
    engine_.reset();
    acrxSysRegistry()->remove(L"AcEditor");
    acrxSysRegistry()->remove(L"ACAD_REGISTERED_COMMANDS");
    setEnvironment(nullptr);
    setDrawingFormat(nullptr);
}

} // namespace host
