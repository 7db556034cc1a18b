#pragma once

namespace host {

void setvarCommand(); // asks for a variable and its value, or lists variables

} // namespace host
