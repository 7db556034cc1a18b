#include "console/run.h"

#include "console/console_output.h"
#include "console/saving.h"
#include "console/script_input.h"
#include "console/standard_input.h"
#include "console/terminal_input.h"
#include "host/commands/drawing_files.h"
#include "host/files/paths.h"
#include "host/runtime/dynamic_linker.h"
#include "host/runtime/load_outcome.h"
#include "host/runtime/registry.h"
#include "host/start/host_session.h"
#include "host/text/encoding.h"

#include <algorithm>
#include <unistd.h>

namespace {

constexpr const char* kModule = "../lib/kelmaro.arx"; // from the program's folder
constexpr const wchar_t* kOutcome = L"KELMARO";

// Flags every drawing that is opened, by whatever command.
class OpensReadOnly : public AcApDocManagerReactor {
public:
    explicit OpensReadOnly(bool on) : on_(on) { acDocManagerPtr()->addReactor(this); }
    ~OpensReadOnly() override { acDocManagerPtr()->removeReactor(this); }
    void documentCreated(AcApDocument* document) override { document->setReadOnly(on_); }

private:
    bool on_;
};

// Modules go before what they were written against.
class Modules {
public:
    Modules() = default;
    ~Modules() { acrxDynamicLinker()->unloadAll(); }
    Modules(const Modules&) = delete;
    Modules& operator=(const Modules&) = delete;

    bool load(const std::filesystem::path& path)
    {
        std::wstring error;
        if (acrxDynamicLinker()->loadModule(path, error))
            return true;
        reportTrouble(error);
        return false;
    }
};

// As it is on disk, where names are found without regard to case; else as given.
std::filesystem::path existingPath(const std::string& given)
{
    const auto found = host::findPath(host::fromUtf8(given));
    return found ? *found : std::filesystem::absolute(given);
}

bool openDrawings(host::HostSession& session, const Arguments& arguments)
{
    for (const std::string& drawing : arguments.drawings) {
        std::wstring message;
        const AcApDocument* const document =
            session.documents().openDocument(existingPath(drawing), arguments.readOnly, message);
        if (!document) {
            reportTrouble(message);
            return false;
        }
        for (const std::wstring& note : {message, host::warningLine(*document)})
            if (!note.empty())
                session.output().print(note + L"\n");
    }
    if (arguments.newDrawing || arguments.drawings.empty())
        session.documents().newDocument();
    return true;
}

// As the user would, who is asked for the path by a file dialog.
bool loadDescription(host::CommandEngine& engine, const std::string& description)
{
    const std::filesystem::path path = existingPath(description);
    std::error_code missing;
    const bool canBeOpened =
        std::filesystem::is_regular_file(path, missing) && ::access(path.c_str(), R_OK) == 0;
    if (canBeOpened) {
        engine.feed(L"KELMARO_LOAD\n\"" + host::fromUtf8(path.string()) + L"\"\n");
        engine.run();
    }
    const auto* const outcome =
        dynamic_cast<const host::LoadOutcome*>(acrxSysRegistry()->at(kOutcome));
    if (!canBeOpened || (outcome && outcome->state() == host::LoadOutcome::State::notOpened)) {
        reportTrouble("cannot open '" + description + "'");
        return false;
    }
    return outcome && outcome->loaded();
}

void typeAll(host::HostSession& session, ConsoleOutput& output,
             const std::vector<std::wstring>& texts)
{
    host::CommandEngine& engine = session.engine();
    for (const std::wstring& text : texts) {
        if (engine.finished())
            break;
        engine.beginStep();
        engine.feed(text);
        engine.run();
        engine.endStep();
        output.flush();
    }
    if (texts.empty()) {
        const bool terminal = ::isatty(STDIN_FILENO);
        if (terminal && ::isatty(STDOUT_FILENO))
            typeAtTerminal(engine, output, session.profile().folder() / "history");
        else
            typeStandardInput(engine, output,
                              terminal ? host::Origin::terminal : host::Origin::script);
    }
    engine.feedEnd();
    engine.run();
    session.output().freshLine();
    output.flush();
}

host::SessionOptions sessionOptions(const Arguments& arguments, ConsoleOutput& output)
{
    host::SessionOptions options;
    options.output = [&output](std::wstring_view text) { output.write(text); };
    if (!arguments.supportFolder.empty())
        options.supportFolder = host::fromUtf8(existingPath(arguments.supportFolder).string());
    options.newDrawing = false;
    return options;
}

} // namespace

ExitStatus run(const Arguments& arguments)
{
    const auto texts = typedTexts(arguments.sources);
    if (!texts)
        return ExitStatus::usage;

    ConsoleOutput output;
    host::HostSession session(sessionOptions(arguments, output));
    const OpensReadOnly opensReadOnly(arguments.readOnly);
    Modules modules;
    const bool opened = openDrawings(session, arguments);
    output.flush();
    if (!opened)
        return ExitStatus::drawing;

    const std::filesystem::path program = std::filesystem::read_symlink("/proc/self/exe");
    bool loaded = modules.load((program.parent_path() / kModule).lexically_normal());
    if (arguments.description)
        loaded = loaded && loadDescription(session.engine(), *arguments.description);
    output.flushLines(); // at a terminal the line editor shows the prompt

    typeAll(session, output, *texts);
    const bool saved = saveDrawings(session, arguments);
    output.flush();
    if (!saved || host::drawingFailures() > 0)
        return ExitStatus::drawing;
    if (arguments.description && !loaded)
        return ExitStatus::description;
    return session.engine().unknownCommands() > 0 ? ExitStatus::unknownCommand : ExitStatus::done;
}
