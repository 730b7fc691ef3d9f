#pragma once

#include "page_control/printing/print_settings.h"

namespace tarvik {

enum class PrinterChoice { kChosen, kCancelled, kNoPrinter };

// Shows the system's print dialog, modal to `owner`, until it is closed. Throws StatusError.
PrinterChoice ChoosePrinter(HWND owner, PrintSettings& settings);

}  // namespace tarvik
