#include "base/TextLine.h"

namespace qm {

bool read_text_line(std::istream& in, std::string& line) {
    if (!std::getline(in, line)) {
        line.assign(LINE_LENGTH, ' ');
        return false;
    }
    if (!line.empty() && line.back() == '\r') line.pop_back();
    line.resize(LINE_LENGTH, ' ');
    return true;
}

}  // namespace qm
