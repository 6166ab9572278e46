#include "base/Log.h"

#include <cstdio>

#include "base/GlobalParameter.h"

namespace qm::LOG {

std::string path() {
    return GLOBAL_PARAMETER::FILEFULLADDRESS(GLOBAL_PARAMETER::RESULTFILEDIR(), LOGFILENAME);
}

bool create() {
    GLOBAL_PARAMETER::GETFILEID();
    std::FILE* f = std::fopen(path().c_str(), "w");
    if (f == nullptr) return false;
    return std::fclose(f) == 0;
}

bool append(const std::string& line) {
    GLOBAL_PARAMETER::GETFILEID();
    std::FILE* f = std::fopen(path().c_str(), "a");
    if (f == nullptr) return false;
    std::fwrite(line.data(), 1, line.size(), f);
    std::fputc('\n', f);
    return std::fclose(f) == 0;
}

std::string with_line_number(const std::string& message, int line) {
    std::string number = std::to_string(line);
    if (number.size() < 30) number.append(30 - number.size(), ' ');
    return message + number;
}

}  // namespace qm::LOG
