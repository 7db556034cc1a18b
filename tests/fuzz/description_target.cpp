// A damaged description gives messages, never more.

#include "tests/fuzz/memory_file.h"
#include "tests/fuzz/scratch_folder.h"
#include "tests/fuzz/target.h"

#include "description/description_reader.h"
#include "host/start/host_session.h"
#include "store/od_store.h"
#include "text/message_sink.h"

#include <memory>

namespace {

class Counted final : public MessageSink {
public:
    void message(std::optional<int> line, Message id, std::wstring_view item) override
    {
        ++count;
        fuzz::require(!messageText(line, id, item).empty(), "a message has a text");
    }

    int count = 0;
};

constexpr int kSessionInputs = 50; // tables pile up in the drawing

std::unique_ptr<host::HostSession> makeSession()
{
    static const fuzz::ScratchFolder profile;
    return std::make_unique<host::HostSession>(host::SessionOptions{.profile = profile.path()});
}

} // namespace

fuzz::Language fuzz::language()
{
    return Language::description;
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    static std::unique_ptr<host::HostSession> session = makeSession();
    static int inputs = 0;
    if (++inputs % kSessionInputs == 0) {
        session.reset();
        session = makeSession();
    }
    const fuzz::MemoryFile file(data, size);
    const std::wstring path = file.path().wstring();
    OdStore store;
    Counted first;
    const Description description = readDescription(path, first, store);
    fuzz::require(!description.filePath.empty() || first.count > 0, "an empty result has a reason");
    fuzz::require(!description.filePath.empty() || description.objects.empty(),
                  "after an error nothing is left");
    return 0;
}
