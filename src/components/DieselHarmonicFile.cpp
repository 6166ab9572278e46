#include "components/DieselHarmonicFile.h"

#include "components/HarmonicFile.h"
#include "base/Constants.h"
#include "base/StringOperation.h"

namespace qm::GLOBAL_DIESEL {

namespace {

const HarmonicFileLayout ENGINE_FILE = {4, MAXHARMONICORDER, MAXMEANINDICATEDPRESSURE,
                                        "Number of harmonic orders exceeds the max allowable number",
                                        "Number of mean indicated pressure exceeds the max allowable number"};

void scale(std::vector<double>& values, double factor) {
    for (double& v : values) v = v * factor;
}

// Reads one file into the fields of one firing state; false after a logged failure.
bool load(RunContext& ctx, const std::string& name, DieselRecord& engine, int& nOrder, int& nPressure, std::vector<double>& pressure,
          std::vector<double>& cosine, std::vector<double>& sine, std::vector<double>& resultant,
          std::vector<double>& phase) {
    HarmonicFileContent c;
    const bool read = read_harmonic_file(ctx, engine.SIDEFILEDIR, name, ENGINE_FILE, c);
    nOrder = c.N;
    nPressure = c.M;
    for (int j = 0; j < MAXHARMONICORDER && j < c.N; ++j) engine.HARMONICORDER[static_cast<std::size_t>(j)] = c.order[static_cast<std::size_t>(j)];
    pressure = c.axis;
    cosine = c.cosine;
    sine = c.sine;
    resultant = c.resultant;
    phase = c.phase;
    if (!read) return false;
    scale(pressure, 100000.0);
    scale(sine, 1000000.0);
    scale(cosine, 1000000.0);
    scale(resultant, 1000000.0);
    for (double& v : phase) v = v * PI / 180.0;
    return true;
}

}  // namespace

void LOADORVANTISFILE(RunContext& ctx, DieselTable& table, bool& ok) {
    for (int e = 1; e <= row_count(table); ++e) {
        DieselRecord& d = table(e);
        const std::string normal = STRINGOPERATION::trimmed(d.NORMALHARMONICFILE);
        if (!normal.empty()) {
            ok = true;
            if (!load(ctx, normal, d, d.NHARMONICORDER, d.NMEANINDICATEDPRESSURE, d.MEANINDICATEDPRESSURE, d.NORMALCOSINE,
                      d.NORMALSINE, d.NORMALRESULTANT, d.NORMALPHASEANGLE)) {
                ok = false;
                return;
            }
        }
        const std::string misfiring = STRINGOPERATION::trimmed(d.MISHARMONICFILE);
        if (!misfiring.empty()) {
            ok = true;
            if (!load(ctx, misfiring, d, d.NHARMONICORDERMIS, d.NMEANINDICATEDPRESSUREMIS, d.MEANINDICATEDPRESSUREMIS,
                      d.MISFIRINGCOSINE, d.MISFIRINGSINE, d.MISFIRINGRESULTANT, d.MISFIRINGPHASEANGLE)) {
                ok = false;
                return;
            }
        }
    }
}

}  // namespace qm::GLOBAL_DIESEL
