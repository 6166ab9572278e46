#include "base/RunContext.h"

#include <cstdio>

#include "base/GlobalParameter.h"
#include "base/Log.h"

namespace qm {

void RunContext::SETRESULTFILEDIR(const std::string& DIRNAME, int length) {
    result_directory_ = GLOBAL_PARAMETER::result_directory_of(DIRNAME, length);
}

std::string RunContext::result_path(const std::string& name) const {
    return GLOBAL_PARAMETER::FILEFULLADDRESS(result_directory_, name);
}

int RunContext::GETFILEID() {
    if (unit_counter_ < 10) unit_counter_ = 10;
    const int unit = unit_counter_;
    unit_counter_ += 10;
    return unit;
}

std::string RunContext::log_path() const { return result_path(LOG::LOGFILENAME); }

bool RunContext::log_create() {
    std::FILE* f = std::fopen(log_path().c_str(), "w");
    if (f == nullptr) return false;
    return std::fclose(f) == 0;
}

bool RunContext::log_append(const std::string& line) {
    std::FILE* f = std::fopen(log_path().c_str(), "a");
    if (f == nullptr) return false;
    std::fwrite(line.data(), 1, line.size(), f);
    std::fputc('\n', f);
    return std::fclose(f) == 0;
}

}  // namespace qm
