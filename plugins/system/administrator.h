#pragma once

namespace tarvik {

// Whether this process runs elevated. Checks an access that only administrators have: membership in the group
// is not enough.
bool IsAdministrator();

}  // namespace tarvik
