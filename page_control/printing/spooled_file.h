#pragma once

#include <span>

#include "page_control/printing/print_progress.h"
#include "page_control/printing/print_settings.h"

namespace tarvik {

// Sends a file as it is to a printer that reads its format, each copy as a document of its own. Prints
// no further copy once `progress` is cancelled. Throws StatusError.
void SpoolFile(std::span<const BYTE> file, const std::wstring& title, const PrintSettings& settings,
               PrintProgress& progress);

}  // namespace tarvik
