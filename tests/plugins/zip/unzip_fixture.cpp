#include "tests/plugins/zip/unzip_fixture.h"

#include <algorithm>
#include <filesystem>
#include <functional>

#include "tests/support/waiting.h"

namespace tarvik {

bool NoRunHolds(CZipPlugin* plugin) {
    plugin->AddRef();
    return plugin->Release() == 1;
}

std::string FailText(HRESULT status) {
    return "fail: EMPTY, I4 " + std::to_string(status);
}

void Unzip::TearDown() {
    plugin_.Reset();
    EXPECT_TRUE(PumpUntil([&] { return liveComObjects == objectsBefore_; }));
}

Ending Unzip::Run(OptionObject& options, Recorder::Answer answer) {
    return RunMember(L"unzip", options, std::move(answer));
}

Ending Unzip::RunMember(const wchar_t* member, OptionObject& options, Recorder::Answer answer) {
    const auto progress = MakeCom<Recorder>(std::move(answer));
    const auto success = MakeCom<Recorder>();
    const auto fail = MakeCom<Recorder>();
    options.Set(L"progress", progress).Set(L"success", success).Set(L"fail", fail);
    EXPECT_EQ(CallMember(plugin_.Get(), member, static_cast<IDispatch*>(options)).status, S_OK);
    EXPECT_TRUE(PumpUntil([&] { return NoRunHolds(plugin_.Get()); }, std::chrono::minutes(1)));
    EXPECT_EQ(success->calls.size() + fail->calls.size(), 1u);
    Ending ending;
    for (const std::string& text : success->Texts())
        ending.text += "success: " + text;
    for (const std::string& text : fail->Texts())
        ending.text += "fail: " + text;
    ending.progress = progress->Texts();
    return ending;
}

OptionObject Unzip::OptionsFor(const std::string& archive) {
    OptionObject options;
    options.Set(L"src", folder_.Write(L"archive.zip", archive).c_str()).Set(L"dest", Dest().c_str());
    return options;
}

Ending Unzip::RunOn(const std::string& archive, Recorder::Answer answer) {
    OptionObject options = OptionsFor(archive);
    return Run(options, std::move(answer));
}

namespace {

// Long contents by their sum: a failed comparison prints both sides.
std::string Shortened(std::string content) {
    if (content.size() < 100) return content;
    return std::to_string(content.size()) + " bytes, hash " +
           std::to_string(std::hash<std::string>{}(content));
}

}  // namespace

std::vector<std::pair<std::u8string, std::string>> ReadTree(const std::wstring& folder) {
    namespace fs = std::filesystem;
    std::vector<std::pair<std::u8string, std::string>> tree;
    for (const auto& entry : fs::recursive_directory_iterator(folder)) {
        const bool isFolder = entry.is_directory();
        tree.emplace_back(
            entry.path().lexically_relative(folder).generic_u8string() + (isFolder ? u8"/" : u8""),
            isFolder ? std::string() : Shortened(ReadFileBytes(entry.path().wstring())));
    }
    std::ranges::sort(tree);
    return tree;
}

}  // namespace tarvik
