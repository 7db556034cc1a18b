// A damaged description gives messages, never more.

#include "tests/fuzz/memory_file.h"
#include "tests/fuzz/target.h"

#include "description/description_reader.h"
#include "host/start/host_session.h"
#include "store/od_store.h"

#include <optional>

namespace {

class Silent : public MessageSink {
public:
    void message(int, Message, std::wstring_view) override { }
};

constexpr int kSessionInputs = 500; // tables pile up in the drawing

} // namespace

fuzz::Language fuzz::language() { return Language::description; }

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    static std::optional<host::HostSession> session;
    static int inputs = 0;
    if (inputs++ % kSessionInputs == 0) {
        session.reset();
        session.emplace(host::SessionOptions { .profile = std::filesystem::temp_directory_path() / "kelmaro-fuzz" });
    }
    const fuzz::MemoryFile file(data, size);
    Silent silent;
    OdStore store;
    readDescription(file.path().wstring(), silent, store);
    return 0;
}
