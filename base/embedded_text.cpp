#include "base/embedded_text.h"

#include <miniz.h>

namespace tarvik {

std::string EmbeddedText::Text() const {
    std::string text(textSize, '\0');
    tinfl_decompress_mem_to_mem(text.data(), text.size(), bytes, size, 0);
    return text;
}

}  // namespace tarvik
