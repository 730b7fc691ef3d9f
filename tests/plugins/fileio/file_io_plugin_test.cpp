#include <algorithm>

#include "tests/plugins/support/page_core.h"

namespace tarvik {
namespace {

class FileIO : public PluginsOfPage {
  protected:
    std::string Call(const wchar_t* member, auto&&... arguments) const {
        return CallText(plugin_.Get(), member, std::forward<decltype(arguments)>(arguments)...);
    }
    bool Open(const std::wstring& path, const wchar_t* mode) const {
        return Call(L"open", path.c_str(), mode) == "BOOL true";
    }
    std::string Get(const wchar_t* name) const { return GetText(plugin_.Get(), name); }

    ComPtr<IDispatch> NewStream(const wchar_t* text = nullptr) const {
        ComPtr<IDispatch> stream = Plugin(L"stream");
        if (text) {
            CallMember(stream.Get(), L"writeString", text);
            CallMember(stream.Get(), L"seek", 0, 0);
        }
        return stream;
    }

    const ComPtr<IDispatch> plugin_ = Plugin(L"fileIO");
};

TEST_F(FileIO, OpensWithTheGivenMode) {
    const std::wstring old = folder_.Write(L"old.txt", "four");
    const std::wstring fresh = folder_ / L"new.txt";
    EXPECT_FALSE(Open(fresh, L"rw")) << "the file must exist by default";
    EXPECT_FALSE(Open(old, L"wn"));
    EXPECT_TRUE(Open(old, L"R, wo?")) << "any case; other characters are ignored";
    EXPECT_EQ(Get(L"size"), "R8 4.000000");
    EXPECT_TRUE(Open(old, L"ncer")) << "the last letter counts";
    EXPECT_EQ(Get(L"size"), "R8 4.000000");
    EXPECT_TRUE(Open(old, L"wc"));
    EXPECT_EQ(Get(L"size"), "R8 0.000000");
    EXPECT_FALSE(Open(L"", L"r"));
    EXPECT_TRUE(Open(L"new.txt", L"wn")) << "relative to the page";
    EXPECT_TRUE(FileExists(fresh));
    EXPECT_FALSE(Open(folder_ / L"no\\such.txt", L"wo")) << "folders are not created";
    EXPECT_EQ(Get(L"size"), "R8 0.000000") << "a failed open leaves the object closed";
}

// Whether the system opens a path for writing, for cases where systems differ.
bool SystemOpens(const std::wstring& path) {
    return static_cast<bool>(
        UniqueHandle(CreateFileW(path.c_str(), GENERIC_WRITE, 0, nullptr, OPEN_ALWAYS, 0, nullptr)));
}

TEST_F(FileIO, CannotOpenLockedOrReadOnlyFiles) {
    const std::wstring path = folder_.Write(L"file", "four");
    UniqueHandle other = HoldFile(path);
    EXPECT_FALSE(Open(path, L"r"));
    other.Reset();
    SetFileAttributesW(path.c_str(), FILE_ATTRIBUTE_READONLY);
    EXPECT_EQ(Open(path, L"w"), SystemOpens(path));
    EXPECT_TRUE(Open(path, L"r"));
    SetFileAttributesW(path.c_str(), FILE_ATTRIBUTE_NORMAL);
}

TEST_F(FileIO, ReadsIntoStreamsAndWritesFromThem) {
    const std::string large(200'000, 'x');
    const std::wstring path = folder_.Write(L"large", large + "end");
    const std::wstring copy = folder_ / L"copy";
    const auto stream = NewStream();
    EXPECT_TRUE(Open(path, L"r"));
    EXPECT_EQ(Call(L"read", stream, 10), "UI4 10");
    EXPECT_EQ(Call(L"read", stream, -1), "UI4 199993") << "the rest";
    EXPECT_EQ(Call(L"read", stream, 1), "I4 0") << "at the end";
    CallMember(stream.Get(), L"seek", 0, 0);
    EXPECT_TRUE(Open(copy, L"wc"));
    EXPECT_EQ(Call(L"write", stream, 500'000), "UI4 200003");
    EXPECT_EQ(Call(L"write", stream, 1), "I4 0");
    Call(L"close");
    Call(L"close");
    EXPECT_EQ(Call(L"read", stream, 10), "I4 0") << "closed";
    EXPECT_TRUE(ReadFileBytes(copy) == large + "end");
}

TEST_F(FileIO, SeeksAndChangesItsSize) {
    const std::wstring path = folder_.Write(L"file", "abcdef");
    EXPECT_TRUE(Open(path, L"rw"));
    EXPECT_EQ(Call(L"seek", -2, 2), "R8 4.000000");
    EXPECT_EQ(Call(L"seek", L"1", 1), "R8 5.000000");
    EXPECT_EQ(Call(L"seek", 3, 0), "R8 3.000000");
    EXPECT_EQ(Call(L"seek", -1, 0), "EMPTY");
    EXPECT_EQ(Call(L"seek", 0, 3), "EMPTY");
    EXPECT_EQ(PutMember(plugin_.Get(), L"size", 0).status, S_OK);
    EXPECT_EQ(Get(L"size"), "R8 0.000000");
    EXPECT_EQ(Call(L"write", NewStream(L"x"), 1), "UI4 1");
    Call(L"close");
    EXPECT_EQ(ReadFileBytes(path), std::string("\0\0\0x", 4)) << "the position outlives the content";
    EXPECT_EQ(Call(L"seek", 0, 0), "EMPTY") << "closed";
}

}  // namespace
}  // namespace tarvik
