#pragma once

namespace host {

// Each draws one dimension. Escape at any prompt ends it and leaves nothing behind.
void dimalignedCommand();
void dimangularCommand();
void dimarcCommand();
void dimdiameterCommand();
void dimjoggedCommand();
void dimlinearCommand();
void dimordinateCommand();
void dimradiusCommand();

// Draws dimension after dimension by the names of their kinds, typed at the prompt "Dim: ", until
// Exit, Enter alone or Escape there. Escape inside a kind leaves that one dimension undrawn and
// leads back to the prompt; what was drawn before stays. Undo takes the last one back.
void dimCommand();

} // namespace host
