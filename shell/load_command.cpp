#include "shell/load_command.h"

#include "description/description_reader.h"
#include "frame/command_frame.h"
#include "host/edit/selection_set.h"
#include "host/ui/file_dialog.h"
#include "session/session.h"
#include "shell/load_report.h"
#include "text/message_sink.h"
#include "text/messages.h"
#include "text/text_file.h"

namespace {

constexpr unsigned kFlags = OFN_HIDEREADONLY | OFN_OVERWRITEPROMPT;

// The old description goes first: what it keeps in the drawing stays there.
void readAnew()
{
    using State = host::LoadOutcome::State;
    Session& current = session();
    current.description.reset();
    CommandLineSink sink;
    current.description = std::make_shared<Description>(
        readDescription(current.descriptionPath, sink, current.store));

    State state = State::loaded;
    if (!TextFileLines::open(current.descriptionPath))
        state = State::notOpened;
    else if (current.description->filePath.empty())
        state = State::failed; // an error empties the path too
    current.kept<LoadReport>().set(state);
}

} // namespace

void loadDescription()
{
    const ResourceScope resources;
    CAcUiFileDialog dialog(true, nullptr, session().descriptionPath, kFlags,
                           textOf(Message::descriptionFilter), nullptr);
    if (dialog.DoModal() != IDOK)
        return;
    session().descriptionPath = dialog.GetPathName();
    // what is selected may be tied to the old definitions
    acedSSSetFirst(nullptr, nullptr);
    readAnew();
}

void reloadDescription()
{
    const ResourceScope resources;
    if (session().descriptionPath.empty())
        return;
    acedSSSetFirst(nullptr, nullptr);
    readAnew();
}
