#include "page_control/printing/spooled_file.h"

#include "tarvik/status.h"
#include "tests/support/temp_folder.h"
#include "tests/support/test.h"
#include "tests/support/test_printer.h"

namespace tarvik {
namespace {

TEST(SpooledFile, ReachesThePrinterAsItIsUnlessTheUserCancels) {
    const TempFolder folder;
    const std::wstring output = folder / L"printed.bin";
    const TestPrinter printer(output);
    const std::vector<BYTE> file(100000, 'a');
    PrintSettings settings;
    settings.printer = printer.Name();
    settings.copies = 2;
    PrintProgress progress;
    progress.cancelled = true;
    SpoolFile(file, L"Bean", settings, progress);
    EXPECT_FALSE(FileExists(output));
    progress.cancelled = false;
    SpoolFile(file, L"Bean", settings, progress);
    EXPECT_EQ(ReadFileBytes(output), std::string(100000, 'a'));
    EXPECT_EQ(progress.done, 2);
    EXPECT_EQ(progress.total, 2);
    settings.printer = L"No such printer";
    EXPECT_THROW(SpoolFile(file, L"Bean", settings, progress), StatusError);
}

}  // namespace
}  // namespace tarvik
