#include "atl/module.h"

#include <algorithm>

namespace tarvik {

CAppModule appModule;

void CMessageLoop::AddMessageFilter(CMessageFilter* filter) {
    filters_.push_back(filter);
}

void CMessageLoop::RemoveMessageFilter(CMessageFilter* filter) {
    std::erase(filters_, filter);
}

int CMessageLoop::Run() {
    MSG message = {};
    for (;;) {
        const BOOL got = GetMessageW(&message, nullptr, 0, 0);
        if (got == -1) continue;
        if (got == 0) return static_cast<int>(message.wParam);
        if (PreTranslateMessage(&message)) continue;
        TranslateMessage(&message);
        DispatchMessageW(&message);
    }
}

bool CMessageLoop::PreTranslateMessage(MSG* message) {
    // A filter may run script, which may remove filters.
    for (size_t i = filters_.size(); i-- > 0;) {
        if (i < filters_.size() && filters_[i]->PreTranslateMessage(message)) return true;
    }
    return false;
}

}  // namespace tarvik
