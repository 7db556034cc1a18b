#pragma once

#include "description/description_reader.h"
#include "host/text/encoding.h"
#include "store/od_store.h"
#include "tests/support/command_test.h"
#include "text/message_sink.h"

#include <fstream>

// Reads descriptions that a test writes, in a session with an empty drawing.
class DescriptionTest : public CommandTest {
protected:
    class ListSink final : public MessageSink {
    public:
        void message(std::optional<int> line, Message id, std::wstring_view item) override
        {
            text += messageText(line, id, item);
        }
        std::wstring text;
    };

    // All messages, as the command line would show them.
    std::wstring messagesOf(std::wstring_view source)
    {
        ListSink sink;
        const std::filesystem::path path = folder() / "description.txt";
        std::ofstream(path, std::ios::binary) << host::toUtf8(source);
        description_ = readDescription(path.wstring(), sink, store_);
        return sink.text;
    }

    bool isEmpty() const
    {
        return description_.objects.empty() && description_.tables.empty() &&
               description_.rootClass.children.empty() && description_.rootClass.objects.empty() &&
               description_.variables.empty() && description_.filePath.empty();
    }

    AcDbObjectId storeId() { return store_.getStoreId(store_.currentDatabase()); }

    OdStore store_;
    Description description_; // the last one read
};

// A row of source text and the messages that it gives.
struct SourceAndMessages {
    std::wstring source;
    std::wstring messages;
};
