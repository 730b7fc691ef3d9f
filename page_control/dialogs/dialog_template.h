#pragma once

#include <windows.h>

#include <string>
#include <vector>

namespace tarvik {

// A dialog template in memory, in the documented layout of DLGTEMPLATE.
class DialogTemplate {
  public:
    DialogTemplate(const std::wstring& caption, SIZE units);

    // Of a class of the system with an atom, or of a class with a name.
    void Add(WORD controlClass, WORD id, DWORD style, RECT units, const std::wstring& text = {});
    void Add(const std::wstring& controlClass, WORD id, DWORD style, RECT units);

    DLGTEMPLATE* Head() { return reinterpret_cast<DLGTEMPLATE*>(words_.data()); }

    static constexpr WORD kButton = 0x0080, kEdit = 0x0081, kStatic = 0x0082;

  private:
    void AddHead(WORD id, DWORD style, RECT units);
    void AddTail(const std::wstring& text);
    void Append(const void* bytes, size_t size);
    void Append(const std::wstring& text) { Append(text.c_str(), (text.size() + 1) * sizeof(wchar_t)); }

    std::vector<WORD> words_;
};

}  // namespace tarvik
