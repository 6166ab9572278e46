#include "DampingElements.h"

#include <algorithm>
#include <fstream>
#include <set>
#include <string>
#include <utility>

#include "base/StringOperation.h"
#include "base/TextLine.h"
#include "base/ValueReader.h"

namespace qm::cli {

namespace {

std::string keyword_of(std::string& line) {
    STRINGOPERATION::STRINGDELETETAB(line);
    std::string word = line;
    STRINGOPERATION::STRINGFIRSTWORD(word);
    STRINGOPERATION::STRINGUPCASE(word);
    return STRINGOPERATION::trimmed(word);
}

bool is_damper(const std::string& word) {
    return word == "VISCOUSDAMPER" || word == "RUBBERDAMPER" || word == "STEELSPRINGDAMPER";
}
bool is_coupling(const std::string& word) {
    return word == "LINEARCOUPLING" || word == "PROGRESSIVECOUPLING" || word == "GEISLINGERCOUPLING";
}

}  // namespace

std::vector<bool> damping_elements(const std::filesystem::path& model) {
    struct Shaft {
        int id, org, des;
    };
    std::vector<Shaft> shafts;
    std::set<int> couplingShafts;
    std::set<std::pair<int, int>> damperNodes;

    std::ifstream in(model, std::ios::binary);
    std::string line;
    while (read_text_line(in, line)) {
        const std::string word = keyword_of(line);
        if (word == "LOADCASE") break;
        if (word == "SHAFT") {
            STRINGOPERATION::STRINGWITHOUTFIRSTWORD(line);
            Shaft s{0, 0, 0};
            ValueReader values(line);
            values.read(s.id);
            values.read(s.org);
            values.read(s.des);
            shafts.push_back(s);
        } else if (is_damper(word) || is_coupling(word)) {
            if (!read_text_line(in, line)) break;  // line 2 names the inertias or the shaft
            STRINGOPERATION::STRINGDELETETAB(line);
            ValueReader values(line);
            int a = 0, b = 0;
            values.read(a);
            if (is_coupling(word)) {
                couplingShafts.insert(a);
            } else {
                values.read(b);
                damperNodes.insert({std::min(a, b), std::max(a, b)});
            }
        }
    }
    std::vector<bool> marks;
    for (const Shaft& s : shafts)
        marks.push_back(couplingShafts.count(s.id) > 0 ||
                        damperNodes.count({std::min(s.org, s.des), std::max(s.org, s.des)}) > 0);
    return marks;
}

}  // namespace qm::cli
