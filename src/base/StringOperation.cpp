#include "base/StringOperation.h"

#include <algorithm>

namespace qm::STRINGOPERATION {

namespace {
void left_adjust(std::string& text) {
    const auto first = text.find_first_not_of(' ');
    const std::size_t length = text.size();
    if (first == std::string::npos) {
        text.assign(length, ' ');
        return;
    }
    text.erase(0, first);
    text.resize(length, ' ');
}
}  // namespace

void STRINGDELETETAB(std::string& text) {
    for (char& c : text) {
        if (c == '\t')
            c = ' ';
        else if (c == ',')
            c = '.';
    }
}

void STRINGFIRSTWORD(std::string& text) {
    left_adjust(text);
    const auto blank = text.find(' ');
    if (blank != std::string::npos) std::fill(text.begin() + static_cast<long>(blank), text.end(), ' ');
}

void STRINGWITHOUTFIRSTWORD(std::string& text) {
    left_adjust(text);
    const auto blank = text.find(' ');
    if (blank == std::string::npos)
        std::fill(text.begin(), text.end(), ' ');
    else
        std::fill(text.begin(), text.begin() + static_cast<long>(blank), ' ');
    left_adjust(text);
}

void STRINGUPCASE(std::string& text) {
    for (char& c : text)
        if (c >= 'a' && c <= 'z') c = static_cast<char>(c - 'a' + 'A');
}

void STRINGADJUST(std::string& text) {
    const std::size_t length = text.size();
    std::string closed;
    closed.reserve(length);
    for (char c : text)
        if (c != ' ') closed += c;
    closed.resize(length, ' ');
    text = closed;
}

int STRINGSPLITCOUNT(const std::string& text) {
    const std::size_t end = text.size() < 100 ? text.size() : 100;
    int words = 0;
    bool in_word = false;
    for (std::size_t i = 0; i < end; ++i) {
        const bool blank = text[i] == ' ';
        if (!blank && !in_word) ++words;
        in_word = !blank;
    }
    return words;
}

std::string trimmed(const std::string& text) {
    const auto first = text.find_first_not_of(' ');
    if (first == std::string::npos) return {};
    const auto last = text.find_last_not_of(' ');
    return text.substr(first, last - first + 1);
}

}  // namespace qm::STRINGOPERATION
