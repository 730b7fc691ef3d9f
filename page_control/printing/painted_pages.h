#pragma once

#include "page_control/printing/page_pictures.h"
#include "page_control/printing/print_progress.h"
#include "page_control/printing/print_settings.h"

namespace tarvik {

// Prints all pages as pictures, each as large as it is, or as the paper allows. Ends early if `progress` is
// cancelled; then the printer drops the document. Throws StatusError.
void PaintPages(const PagePictures& pages, const std::wstring& title, const PrintSettings& settings,
                PrintProgress& progress);

}  // namespace tarvik
