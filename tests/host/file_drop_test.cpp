#include "host/file_drop.h"

#include "script/object.h"
#include "tests/support/dragged_files.h"
#include "tests/support/test.h"

namespace tarvik {
namespace {

TEST(FileDrop, GivesTheFilesAndTheContextToTheBinding) {
    const ObjectCheck nothingLeft;
    ComPtr<IDispatch> array;
    ASSERT_THAT(CreateScriptObject(L"array", array.GetAddressOf()), HasStatus(S_OK));
    const auto data = MakeCom<DraggedFiles>(std::vector<std::wstring>{L"C:\\a.txt", L"D:\\\u00e4 b"});
    ASSERT_THAT(ReadDroppedFiles(data.Get(), array.Get()), HasStatus(S_OK));
    EXPECT_EQ(GetText(array.Get(), L"length"), "UI8 2");
    EXPECT_EQ(GetText(array.Get(), L"0"), "BSTR C:\\a.txt");

    const auto callback = MakeCom<Recorder>();
    OptionObject binding;
    binding.Set(L"callback", callback).Set(L"context", 5);
    CallDropBinding(binding, array.Get());
    EXPECT_THAT(callback->Texts(), ElementsAre("DISPATCH, I4 5"));
    EXPECT_EQ(callback->calls[0].arguments[0].pdispVal, array.Get());
    CallDropBinding(OptionObject(), array.Get());
}

}  // namespace
}  // namespace tarvik
