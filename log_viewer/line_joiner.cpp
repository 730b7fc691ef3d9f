#include "log_viewer/line_joiner.h"

namespace tarvik {

std::vector<std::string> LineJoiner::Add(const DebugMessage& message) {
    std::string text = std::move(begun_[message.process]) + message.text;
    begun_.erase(message.process);
    std::vector<std::string> lines;
    size_t start = 0;
    for (size_t end; (end = text.find('\n', start)) != std::string::npos; start = end + 1) {
        std::string line = text.substr(start, end - start);
        if (line.ends_with('\r')) line.pop_back();
        lines.push_back(std::move(line));
    }
    if (start < text.size()) {
        std::string rest = text.substr(start);
        if (message.isFull) {
            begun_[message.process] = std::move(rest);
        } else {
            lines.push_back(std::move(rest));
        }
    }
    return lines;
}

}  // namespace tarvik
