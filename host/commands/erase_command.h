#pragma once

namespace host {

void eraseCommand(); // what lies on locked layers stays and is counted

} // namespace host
