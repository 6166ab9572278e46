#include "base/GlobalParameter.h"

#include <cmath>

namespace qm::GLOBAL_PARAMETER {

namespace {
std::string left_adjusted_trimmed(const std::string& text) {
    const auto first = text.find_first_not_of(' ');
    if (first == std::string::npos) return {};
    const auto last = text.find_last_not_of(' ');
    return text.substr(first, last - first + 1);
}
}  // namespace

std::string result_directory_of(const std::string& DIRNAME, int length) {
    std::string dir = DIRNAME.substr(0, length > 0 ? static_cast<std::size_t>(length) : 0U);
    if (dir.size() > static_cast<std::size_t>(FILENAME_LENGTH)) dir.resize(FILENAME_LENGTH);
    // Blanks around the directory are no part of it: a length that runs past the
    // directory's characters leaves nothing behind them.
    dir = left_adjusted_trimmed(dir);
    if (dir.empty() || dir.back() != SEPARATOR) dir += SEPARATOR;
    return dir;
}

std::string FILEFULLADDRESS(const std::string& FILEDIR, const std::string& FILENAME) {
    const std::string dir = left_adjusted_trimmed(FILEDIR);
    const std::string name = left_adjusted_trimmed(FILENAME);
    std::string address;
    if (!dir.empty() && dir.back() == SEPARATOR)
        address = dir + name;
    else
        address = dir + SEPARATOR + name;
    if (address.size() > static_cast<std::size_t>(FILENAME_LENGTH)) address.resize(FILENAME_LENGTH);
    return address;
}

double CALCULATE_UNDIMENSIONEDDAMPINGFACTOR(double x) {
    if (x <= 0.0) return 0.0;
    if (x <= 1.0) return 1.0 / x;
    return std::sqrt(1.0 / (x * x - 1.0));
}

}  // namespace qm::GLOBAL_PARAMETER
