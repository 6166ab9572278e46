#include "components/PropellerSideFiles.h"

#include <fstream>

#include "base/TextLine.h"
#include "base/StringOperation.h"
#include "base/ValueReader.h"

namespace qm::GLOBAL_PROPELLER {

namespace {

// Line by line through a side file, counting from 1; failures are logged with the line.
class SideFile {
public:
    // `name` as the model wrote it, for the messages; a relative name starts in `folder`.
    SideFile(RunContext& ctx, const std::string& folder, const std::string& name) : ctx_(ctx), name_(name) {
        open_text_file(in_, side_file_path(folder, name));
    }
    bool next() {
        ++counter_;
        if (!in_.is_open() || !read_text_line(in_, line_)) return fail();
        STRINGOPERATION::STRINGDELETETAB(line_);
        return true;
    }
    bool skip(int lines) {
        for (int k = 0; k < lines; ++k)
            if (!next()) return false;
        return true;
    }
    bool fail() {
        ctx_.log_append("Error occurs when reading " + name_ + " in line " + std::to_string(counter_));
        return false;
    }
    std::string& line() { return line_; }

private:
    RunContext& ctx_;
    std::string name_;
    std::ifstream in_;
    std::string line_;
    int counter_ = 0;
};

// One table row: the order of row k, then S values into `table` at row k.
bool ice_row(SideFile& file, PropellerRecord& p, int k, std::array<double, MAXICETABLE>& table) {
    if (!file.next()) return false;
    ValueReader values(file.line());
    if (!values.read(p.ICEHARMONICORDER[static_cast<std::size_t>(k - 1)])) return file.fail();
    for (int j = 1; j <= p.NSPEEDRATIO; ++j)
        if (!values.read(table[ice_position(k, j, p.NSPEEDRATIO)])) return file.fail();
    return true;
}

bool read_ice_file(SideFile& file, PropellerRecord& p, int n) {
    if (!file.skip(5)) return false;
    ValueReader ratios(file.line());
    for (int j = 1; j <= p.NSPEEDRATIO; ++j)
        if (!ratios.read(p.SPEEDRATIO[static_cast<std::size_t>(j - 1)])) return file.fail();
    if (!file.skip(3) || !ice_row(file, p, 1, p.ICECOSINE) || !file.skip(4)) return false;
    for (int k = 2; k <= n; ++k)
        if (!ice_row(file, p, k, p.ICECOSINE)) return false;
    if (!file.skip(4)) return false;
    // The constant term has no sine: row 1 of the sine table stays zero.
    for (int k = 2; k <= n; ++k)
        if (!ice_row(file, p, k, p.ICESINE)) return false;
    return true;
}

}  // namespace

void LOAD_PROPELLER_EXCITATIONFILE(RunContext& ctx, PropellerTable& table, int i, bool& ok) {
    if (!is_row(table, i)) return;
    PropellerRecord& p = table(i);
    const std::string name = STRINGOPERATION::trimmed(p.EXCITATIONFILE);
    if (name.empty()) return;
    ok = true;
    const int n = GET_PROPELLER_NICEFOURIERORDERS(table, i);
    if (n > MAXICEORDER || p.NSPEEDRATIO > MAXSPEEDRATIO || p.NSPEEDRATIO < 0) {
        // The tables hold 48 rows (11 blades) of at most 10 speed ratios.
        ctx.log_append("Number of ice harmonic orders exceeds the max allowable number");
        ok = false;
        return;
    }
    SideFile file(ctx, p.SIDEFILEDIR, name);
    if (!read_ice_file(file, p, n)) ok = false;
}

void LOAD_PROPELLER_VARIABLEENTRAINEDWATERFILE(RunContext& ctx, PropellerTable& table, int i, bool& ok) {
    if (!is_row(table, i)) return;
    PropellerRecord& p = table(i);
    const std::string name = STRINGOPERATION::trimmed(p.VARIABLEENTRAINEDWATERFILE);
    if (name.empty() || p.NLOADCASE <= 0) return;
    ok = true;
    if (p.NLOADCASE > MAXLOADCASE) {
        ctx.log_append("Number of load cases exceeds the max allowable number");
        ok = false;
        return;
    }
    p.VARIABLEENTRAINEDWATERTABLE.assign(static_cast<std::size_t>(p.NLOADCASE), 0.0);
    SideFile file(ctx, p.SIDEFILEDIR, name);
    for (int lc = 1; lc <= p.NLOADCASE; ++lc) {
        if (!file.next()) {
            ok = false;
            return;
        }
        // The first word names the load case and is not looked at.
        STRINGOPERATION::STRINGWITHOUTFIRSTWORD(file.line());
        if (!ValueReader(file.line()).read(p.VARIABLEENTRAINEDWATERTABLE[static_cast<std::size_t>(lc - 1)])) {
            file.fail();
            ok = false;
            return;
        }
    }
}

}  // namespace qm::GLOBAL_PROPELLER
