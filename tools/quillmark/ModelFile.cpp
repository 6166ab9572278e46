#include "ModelFile.h"

#include <fstream>

#include "base/StringOperation.h"
#include "base/ValueReader.h"
#include "input/InputReader.h"

namespace qm::cli {

namespace {

// The first word of a line in capitals, and the line behind it.
std::string first_word(std::string& line) {
    STRINGOPERATION::STRINGDELETETAB(line);
    std::string word = line;
    STRINGOPERATION::STRINGFIRSTWORD(word);
    STRINGOPERATION::STRINGUPCASE(word);
    return STRINGOPERATION::trimmed(word);
}

}  // namespace

std::vector<double> records(const std::filesystem::path& file) {
    std::vector<double> values;
    std::ifstream in(file, std::ios::binary);
    double v = 0.0;
    while (in.read(reinterpret_cast<char*>(&v), sizeof v)) values.push_back(v);
    return values;
}

std::vector<int> section_ids(const std::filesystem::path& model, const std::string& keyword) {
    std::vector<int> ids;
    std::ifstream in(model, std::ios::binary);
    std::string line;
    while (read_text_line(in, line)) {
        const std::string word = first_word(line);
        if (word == "LOADCASE") break;
        if (word != keyword) continue;
        STRINGOPERATION::STRINGWITHOUTFIRSTWORD(line);
        int id = 0;
        ValueReader(line).read(id);
        ids.push_back(id);
    }
    return ids;
}

std::vector<double> load_case_speeds(const std::filesystem::path& model) {
    std::vector<double> speeds;
    std::ifstream in(model, std::ios::binary);
    std::string line;
    while (read_text_line(in, line) && first_word(line) != "LOADCASE") {
    }
    while (read_text_line(in, line) && first_word(line) != "RPM") {
    }
    if (!read_text_line(in, line)) return speeds;  // the IDs of the columns
    while (read_text_line(in, line)) {
        STRINGOPERATION::STRINGDELETETAB(line);
        if (STRINGOPERATION::trimmed(line).empty()) break;
        double speed = 0.0;
        ValueReader(line).read(speed);
        speeds.push_back(speed);
    }
    return speeds;
}

}  // namespace qm::cli
