#include "components/ReciprocatingPumpFile.h"

#include "components/HarmonicFile.h"
#include "base/Constants.h"
#include "base/StringOperation.h"

namespace qm::GLOBAL_RECIPROCATINGPUMP {

namespace {
const HarmonicFileLayout PUMP_FILE = {16, 24, 100, "Number of harmonic orders exceeds the max allowable number",
                                      "Number of speed percentage exceeds the max allowable number"};
}  // namespace

void LOADORVANTISPUMPFILE(RunContext& ctx, ReciprocatingPumpTable& table, bool& ok) {
    for (int i = 1; i <= row_count(table); ++i) {
        ReciprocatingPumpRecord& p = table(i);
        const std::string name = STRINGOPERATION::trimmed(p.PUMPHARMONICFILE);
        if (name.empty()) continue;
        ok = true;
        HarmonicFileContent c;
        const bool read = read_harmonic_file(ctx, p.SIDEFILEDIR, name, PUMP_FILE, c);
        p.NHARMONICORDER = c.N;
        p.NSPEEDPERCENTAGE = c.M;
        for (std::size_t j = 0; j < c.order.size() && static_cast<int>(j) < c.N; ++j) p.HARMONICORDER[j] = c.order[j];
        for (std::size_t k = 0; k < c.axis.size(); ++k) p.SPEEDPERCENTAGES[k] = c.axis[k];
        p.NORMALCOSINE = c.cosine;
        p.NORMALSINE = c.sine;
        p.NORMALRESULTANT = c.resultant;
        p.NORMALPHASEANGLE = c.phase;
        if (!read) {
            ok = false;
            return;
        }
        for (auto* values : {&p.NORMALSINE, &p.NORMALCOSINE, &p.NORMALRESULTANT})
            for (double& v : *values) v = v * 1000000.0;
        for (double& v : p.NORMALPHASEANGLE) v = v * PI / 180.0;
    }
}

}  // namespace qm::GLOBAL_RECIPROCATINGPUMP
