#include "components/ViscousDamperCustomDamping.h"

#include <fstream>
#include <string>

#include "base/TextLine.h"
#include "base/StringOperation.h"
#include "base/ValueReader.h"

namespace qm::GLOBAL_VISCOUSDAMPER {

namespace {

bool blank(const std::string& line) { return line.find_first_not_of(' ') == std::string::npos; }

// The next line of a side file, tabs and commas made blanks and periods.
bool next_line(std::istream& in, std::string& line, int& counter) {
    ++counter;
    const bool ok = read_text_line(in, line);
    STRINGOPERATION::STRINGDELETETAB(line);
    return ok;
}

bool fail(RunContext& ctx, const std::string& name, int counter, bool& ok) {
    ctx.log_append("Error occurs when reading " + name + " in line " + std::to_string(counter));
    ok = false;
    return false;
}

double interpolate(const ViscousDamperRecord& d, const std::vector<double>& y, double order) {
    const int n = d.NFREQUENCY;
    if (n < 1 || static_cast<int>(y.size()) < n || static_cast<int>(d.FREQUENCIES.size()) < n) return 0.0;
    if (n == 1) return y[0];
    const double f = d.SPEED * order / 60.0;
    const std::vector<double>& x = d.FREQUENCIES;
    // Segment (a, b), 1-based: the first whose upper point is not below f; a frequency that
    // does not compare stops the search.
    int a = 1, b = 2;
    while (b < n && x[static_cast<std::size_t>(b - 1)] < f) {
        ++a;
        ++b;
    }
    const double xa = x[static_cast<std::size_t>(a - 1)], xb = x[static_cast<std::size_t>(b - 1)];
    const double ya = y[static_cast<std::size_t>(a - 1)], yb = y[static_cast<std::size_t>(b - 1)];
    return ya + (yb - ya) * (f - xa) / (xb - xa);
}

}  // namespace

void LOADCUSTOMDAMPINGFILE(RunContext& ctx, ViscousDamperTable& table, int i, bool& ok) {
    if (!is_row(table, i)) return;
    ViscousDamperRecord& d = table(i);
    const std::string name = STRINGOPERATION::trimmed(d.CUSTOMDAMPINGFILE);
    if (name.empty()) return;
    const std::string path = side_file_path(d.SIDEFILEDIR, name);
    ok = true;

    // First reading: the layout from the header, then the number of rows.
    std::string line;
    int counter = 0;
    {
        // A file that can't be opened reads as one that ends before line 1.
        std::ifstream in;
        open_text_file(in, path);
        if (!next_line(in, line, counter)) {
            fail(ctx, name, counter, ok);
            return;
        }
        d.ISCUSTOMSTIFFNESS = STRINGOPERATION::STRINGSPLITCOUNT(line) != 2;
        int rows = 0;
        while (read_text_line(in, line)) {
            STRINGOPERATION::STRINGDELETETAB(line);
            if (!blank(line)) ++rows;
        }
        d.NFREQUENCY = rows;
    }
    if (d.NFREQUENCY > MAXFREQUENCY) {
        ctx.log_append("Number of frequencies exceeds the max allowable number");
        ok = false;
        return;
    }

    // Second reading: the rows follow the header without a gap.
    const auto n = static_cast<std::size_t>(d.NFREQUENCY);
    d.FREQUENCIES.assign(n, 0.0);
    d.CUSTOMDAMPING.assign(n, 0.0);
    d.CUSTOMSTIFFNESS.assign(d.ISCUSTOMSTIFFNESS ? n : 0U, 0.0);
    std::ifstream in;
    open_text_file(in, path);
    counter = 0;
    next_line(in, line, counter);
    for (std::size_t k = 0; k < n; ++k) {
        if (!next_line(in, line, counter)) {
            fail(ctx, name, counter, ok);
            return;
        }
        ValueReader values(line);
        const bool read = d.ISCUSTOMSTIFFNESS
                              ? values.read_all(d.FREQUENCIES[k], d.CUSTOMDAMPING[k], d.CUSTOMSTIFFNESS[k])
                              : values.read_all(d.FREQUENCIES[k], d.CUSTOMDAMPING[k]);
        if (!read) {
            fail(ctx, name, counter, ok);
            return;
        }
    }
}

double CALCULATE_VISCOUSDAMPER_CUSTOMDAMPING(const ViscousDamperTable& table, int i, double order) {
    if (!is_row(table, i)) return 0.0;
    return interpolate(table(i), table(i).CUSTOMDAMPING, order);
}

double CALCULATE_VISCOUSDAMPER_CUSTOMSTIFFNESS(const ViscousDamperTable& table, int i, double order) {
    if (!is_row(table, i)) return 0.0;
    return interpolate(table(i), table(i).CUSTOMSTIFFNESS, order);
}

}  // namespace qm::GLOBAL_VISCOUSDAMPER
