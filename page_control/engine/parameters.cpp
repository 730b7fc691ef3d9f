#include "page_control/engine/parameters.h"

namespace tarvik {

Parameters::Parameters(std::initializer_list<Entry> entries) {
    for (const Entry& entry : entries)
        object_.emplace(entry.name, std::move(entry.value));
}

}  // namespace tarvik
