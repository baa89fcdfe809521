// What shows a message when no hook has taken over. Internal; one source for each system.
#pragma once

namespace quorvan::platform {

/// Shows the message in the system's way and returns the button pressed. `text` is not null.
int showDefaultMessageBox(const wchar_t* text, unsigned int type) noexcept;

}  // namespace quorvan::platform
