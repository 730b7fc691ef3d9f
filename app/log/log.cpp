#include "app/log/log.h"

namespace tarvik {

Logger processLog = {TARVIK_LOG_FLAGS, nullptr};

}  // namespace tarvik
