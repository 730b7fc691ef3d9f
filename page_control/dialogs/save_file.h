#pragma once

#include <functional>
#include <string>

namespace tarvik {

// Saves a file at `place`, replacing another one. `write` writes it to `part`, a path beside it, so that no
// half of a file is found under the final name. After a failure, both are as before. Throws StatusError.
void SaveFile(const std::wstring& place, const std::function<void(const std::wstring& part)>& write);

}  // namespace tarvik
