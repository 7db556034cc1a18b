#pragma once

#include "description/description.h"

#include <string_view>

class MessageSink;
class OdStore;

// Reads a description file and brings what it defines into the working drawing: variables are set,
// then tables created. Every fault is told to the sink; after an error the result is empty, its
// path too. A file that cannot be opened gives an empty model with the path, and no message.
Description readDescription(std::wstring_view path, MessageSink& sink, OdStore& store);
