#pragma once

#include <string>

namespace tarvik {

// What a process holds. Take it before and after; GrownSince names what grew, and is empty when nothing did.
// COM objects are those of base/com_object.h.
class Holdings {
  public:
    static Holdings Now();
    std::string GrownSince(const Holdings& before) const;

  private:
    long comObjects_ = 0;
    long threads_ = 0;
    long gdiHandles_ = 0;
    long userHandles_ = 0;
};

}  // namespace tarvik
