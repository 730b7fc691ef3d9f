#pragma once

#include <cstddef>
#include <string>

namespace tarvik {

// Text files that the build has compressed into the program: see tarvik_embed_text, which declares no
// constant; whoever uses one declares it.
struct EmbeddedText {
    const unsigned char* bytes;  // a raw deflate stream
    size_t size;
    size_t textSize;  // of the text, in bytes

    // Decompresses the text. Throws std::bad_alloc.
    std::string Text() const;
};

}  // namespace tarvik
