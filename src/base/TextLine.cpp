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

namespace {
// Larger text files than this are refused: no model or side file comes near it, and reading
// it line by line would hold the call for minutes.
constexpr long long MAX_TEXT_FILE_BYTES = 1LL << 30;
}  // namespace

std::string side_file_path(const std::string& folder, const std::string& name) {
    const std::string trimmed = STRINGOPERATION::trimmed(name);
    if (trimmed.empty() || trimmed.front() == '/' || STRINGOPERATION::trimmed(folder).empty()) return trimmed;
    return GLOBAL_PARAMETER::FILEFULLADDRESS(folder, trimmed);
}

bool open_text_file(std::ifstream& in, const std::string& name) {
    if (in.is_open()) in.close();
    struct stat status {};
    if (name.empty() || ::stat(name.c_str(), &status) != 0 || !S_ISREG(status.st_mode)) return false;
    if (status.st_size > MAX_TEXT_FILE_BYTES) return false;
    // A file of size 0 has nothing to read and is left closed, so it reads as ended at once.
    // The system's pseudo-files also give size 0, and some of them never end or block.
    if (status.st_size == 0) return true;
    in.open(name, std::ios::binary);
    return in.is_open();
}

}  // namespace qm
