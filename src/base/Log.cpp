#include "base/Log.h"

namespace qm::LOG {

std::string with_line_number(const std::string& message, int line) {
    std::string number = std::to_string(line);
    if (number.size() < 30) number.append(30 - number.size(), ' ');
    return message + number;
}

}  // namespace qm::LOG
