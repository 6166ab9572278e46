#include "base/TextLine.h"

#include <sys/stat.h>

#include "base/GlobalParameter.h"
#include "base/StringOperation.h"

namespace qm {

bool read_text_line(std::istream& in, std::string& line) {
    line.clear();
    std::streambuf* buffer = in.rdbuf();
    if (buffer == nullptr || !in.good()) {
        in.setstate(std::ios::failbit);
        line.assign(LINE_LENGTH, ' ');
        return false;
    }
    // One character beyond the counted ones is kept, so that a carriage return standing
    // right behind a full line can still be told from text.
    constexpr std::size_t KEEP = LINE_LENGTH + 1;
    std::size_t length = 0;
    bool any = false;
    for (;;) {
        const int c = buffer->sbumpc();
        if (c == std::char_traits<char>::eof()) {
            in.setstate(any ? std::ios::eofbit : (std::ios::eofbit | std::ios::failbit));
            break;
        }
        any = true;
        if (c == '\n') break;
        if (length < KEEP) line.push_back(static_cast<char>(c));
        ++length;
    }
    if (!any) {
        line.assign(LINE_LENGTH, ' ');
        return false;
    }
    if (length <= KEEP && !line.empty() && line.back() == '\r') line.pop_back();
    line.resize(LINE_LENGTH, ' ');
    return true;
}

bool is_regular_file(const std::string& name) {
    struct stat status {};
    return !name.empty() && ::stat(name.c_str(), &status) == 0 && S_ISREG(status.st_mode);
}

std::string side_file_path(const std::string& folder, const std::string& name) {
    const std::string trimmed = STRINGOPERATION::trimmed(name);
    if (trimmed.empty() || trimmed.front() == '/' || STRINGOPERATION::trimmed(folder).empty()) return trimmed;
    return GLOBAL_PARAMETER::FILEFULLADDRESS(folder, trimmed);
}

bool open_text_file(std::ifstream& in, const std::string& name) {
    if (in.is_open()) in.close();
    if (!is_regular_file(name)) return false;
    in.open(name, std::ios::binary);
    return in.is_open();
}

}  // namespace qm
