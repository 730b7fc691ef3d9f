#pragma once

namespace tarvik {

// Whether this process has the rights of an administrator now. The system is asked for an access that only
// administrators have, so membership alone does not count.
bool IsAdministrator();

}  // namespace tarvik
