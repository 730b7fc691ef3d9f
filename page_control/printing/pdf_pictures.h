#pragma once

#include <memory>
#include <span>

#include "page_control/printing/page_pictures.h"

namespace tarvik {

// The pages of a PDF file, drawn by Windows. `pdf` outlives them. For a thread in the multithreaded
// apartment, which the drawing keeps waiting. Throws StatusError; Wine has no such function.
std::unique_ptr<PagePictures> MakePdfPictures(std::span<const BYTE> pdf);

}  // namespace tarvik
