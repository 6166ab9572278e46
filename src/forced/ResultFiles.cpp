#include "forced/ResultFiles.h"

#include <limits>

namespace qm::FORCEDVIBRATION {

namespace {

struct FileInfo {
    const char* name;
    Family family;
    bool masses;
};

constexpr FileInfo kFiles[NRESULTFILE] = {
    {"DieselDeflection.bin", PER_ORDER, true},
    {"DieselVelocity.bin", PER_ORDER, true},
    {"DieselAccele.bin", PER_ORDER, true},
    {"DieselTorque.bin", PER_ORDER, false},
    {"DieselStress.bin", PER_ORDER, false},
    {"PropellerDeflection.bin", PER_ORDER, true},
    {"PropellerVelocity.bin", PER_ORDER, true},
    {"PropellerAccele.bin", PER_ORDER, true},
    {"PropellerTorque.bin", PER_ORDER, false},
    {"PropellerStress.bin", PER_ORDER, false},
    {"SynthesisDeflection.bin", PER_ELEMENT, true},
    {"SynthesisVelocity.bin", PER_ELEMENT, true},
    {"SynthesisAcceleration.bin", PER_ELEMENT, true},
    {"SynthesisTorque.bin", PER_ELEMENT, false},
    {"SynthesisStress.bin", PER_ELEMENT, false},
    {"ShaftPowerLoss.bin", PER_ELEMENT, false},
    {"NominalTorque.bin", PER_ELEMENT, false},
    {"NominalStress.bin", PER_ELEMENT, false},
    {"GeneratorDeflection.bin", PER_ORDER, true},
    {"GeneratorVelocity.bin", PER_ORDER, true},
    {"GeneratorAccele.bin", PER_ORDER, true},
    {"GeneratorTorque.bin", PER_ORDER, false},
    {"GeneratorStress.bin", PER_ORDER, false},
    {"ElectricMotorDeflection.bin", PER_ORDER, true},
    {"ElectricMotorVelocity.bin", PER_ORDER, true},
    {"ElectricMotorAccele.bin", PER_ORDER, true},
    {"ElectricMotorTorque.bin", PER_ORDER, false},
    {"ElectricMotorStress.bin", PER_ORDER, false},
    {"CentrifugalPumpDeflection.bin", PER_ORDER, true},
    {"CentrifugalPumpVelocity.bin", PER_ORDER, true},
    {"CentrifugalPumpAccele.bin", PER_ORDER, true},
    {"CentrifugalPumpTorque.bin", PER_ORDER, false},
    {"CentrifugalPumpStress.bin", PER_ORDER, false},
    {"ReciprocatingPumpDeflection.bin", PER_ORDER, true},
    {"ReciprocatingPumpVelocity.bin", PER_ORDER, true},
    {"ReciprocatingPumpAccele.bin", PER_ORDER, true},
    {"ReciprocatingPumpTorque.bin", PER_ORDER, false},
    {"ReciprocatingPumpStress.bin", PER_ORDER, false},
    {"AngularDefAngleBasedDiesel.bin", CURVE, true},
    {"AngularDefAngleBasedPropeller.bin", CURVE, true},
    {"AngularVelAngleBasedDiesel.bin", CURVE, true},
    {"AngularVelAngleBasedPropeller.bin", CURVE, true},
    {"AngularAcceAngleBasedDiesel.bin", CURVE, true},
    {"AngularAcceAngleBasedPropeller.bin", CURVE, true},
    {"TorqueAngleBasedDiesel.bin", CURVE, false},
    {"TorqueAngleBasedPropeller.bin", CURVE, false},
    {"StressAngleBasedDiesel.bin", CURVE, false},
    {"StressAngleBasedPropeller.bin", CURVE, false},
    {"SynPropIceDeflection.bin", PER_ELEMENT, true},
    {"SynPropIceVelocity.bin", PER_ELEMENT, true},
    {"SynPropIceAccele.bin", PER_ELEMENT, true},
    {"SynPropIceTorque.bin", PER_ELEMENT, false},
    {"SynPropIceStress.bin", PER_ELEMENT, false},
    {"PropellerShaftMarks.bin", ONCE, false},
    {"SynPropIceDampingTorque.bin", PER_ELEMENT, false},
    {"DieselDampingTorque.bin", PER_ORDER, false},
    {"PropellerDampingTorque.bin", PER_ORDER, false},
    {"GeneratorDampingTorque.bin", PER_ORDER, false},
    {"CentrifugalPumpDampingTorque.bin", PER_ORDER, false},
    {"ReciprocatingPumpDampingTorque.bin", PER_ORDER, false},
    {"ElectricMotorDampingTorque.bin", PER_ORDER, false},
    {"SynthesisDampingTorque.bin", PER_ELEMENT, false},
    {"ResultantTorque.bin", PER_ELEMENT, false},
};

// First file of the five always-present per-order files of each kind (deflection, velocity,
// acceleration, torque, stress follow in this order), and its damping torque file.
constexpr ResultFile kFirstOfKind[NKIND] = {DIESEL_DEFLECTION,          PROPELLER_DEFLECTION,
                                            GENERATOR_DEFLECTION,       CENTRIFUGALPUMP_DEFLECTION,
                                            RECIPROCATINGPUMP_DEFLECTION, ELECTRICMOTOR_DEFLECTION};
constexpr ResultFile kDampingOfKind[NKIND] = {DIESEL_DAMPINGTORQUE,          PROPELLER_DAMPINGTORQUE,
                                              GENERATOR_DAMPINGTORQUE,       CENTRIFUGALPUMP_DAMPINGTORQUE,
                                              RECIPROCATINGPUMP_DAMPINGTORQUE, ELECTRICMOTOR_DAMPINGTORQUE};

// Record numbers are signed 32-bit integers. The arithmetic is done in unsigned 64 bits, which
// wraps modulo 2^64 and so agrees modulo 2^32 with integers of 32 bits; the conversion to
// int32 then wraps as those integers do (defined in C++20).
using U = std::uint64_t;
std::int32_t wrap(U v) { return static_cast<std::int32_t>(static_cast<std::uint32_t>(v)); }
U big(int v) { return static_cast<U>(static_cast<std::int64_t>(v)); }

}  // namespace

const char* result_file_name(ResultFile f) { return kFiles[f].name; }
Family result_file_family(ResultFile f) { return kFiles[f].family; }
bool on_masses(ResultFile f) { return kFiles[f].masses; }

ResultFile per_order_file(SourceKind kind, Quantity q) {
    if (q == DAMPINGTORQUE) return kDampingOfKind[kind];
    return static_cast<ResultFile>(static_cast<int>(kFirstOfKind[kind]) + static_cast<int>(q));
}

SourceKind per_order_kind(ResultFile f) {
    for (int k = 0; k < NKIND; ++k) {
        if (f == kDampingOfKind[k] || (f >= kFirstOfKind[k] && f < kFirstOfKind[k] + 5))
            return static_cast<SourceKind>(k);
    }
    return DIESEL;
}

bool result_file_exists(ResultFile f, const ResultFlags& flags) {
    if (f <= RECIPROCATINGPUMP_STRESS) return true;
    if (f <= STRESSANGLE_PROPELLER) return flags.OUTPUTANGLEBASEDRESULTS && flags.HASDIESEL;
    if (f <= PROPELLER_SHAFT_MARKS) return flags.ISPROPELLERICE;
    if (f == SYNPROPICE_DAMPINGTORQUE) return flags.ISPROPELLERICE && flags.HASDAMPERORCOUPLING;
    return flags.HASDAMPERORCOUPLING;
}

std::vector<ResultFile> result_files_opened(const ResultFlags& flags) {
    std::vector<ResultFile> files;
    for (int f = 0; f < NRESULTFILE; ++f)
        if (result_file_exists(static_cast<ResultFile>(f), flags)) files.push_back(static_cast<ResultFile>(f));
    return files;
}

std::int32_t per_order_index(int unit, int o, int e, int NE, int NORDER) {
    return wrap((big(unit) - 1) * big(NE) * big(NORDER) + (big(o) - 1) * big(NE) + big(e));
}

std::int32_t per_order_record(int lc, int unit, int o, int e, int c, int NUNIT, int NE, int NORDER) {
    const U i = big(per_order_index(unit, o, e, NE, NORDER));
    return wrap(((big(lc) - 1) * big(NUNIT) * big(NE) * big(NORDER) + i - 1) * 4 + big(c));
}

std::int32_t per_element_record(int lc, int e, int NE) { return wrap((big(lc) - 1) * big(NE) + big(e)); }

std::int32_t curve_record(int lc, int e, int a, int NE) {
    return wrap(((big(lc) - 1) * big(NE) + big(e) - 1) * CURVE_STEPS + big(a));
}

std::int32_t once_record(int e) { return e; }

std::int64_t result_file_records(ResultFile f, const ResultDims& d) {
    const std::int64_t ne = on_masses(f) ? d.NMASS : d.NSHAFT;
    switch (result_file_family(f)) {
        case PER_ORDER: {
            const SourceKind k = per_order_kind(f);
            return 4 * static_cast<std::int64_t>(d.NLOADCASE) * d.NUNIT[k] * d.NORDER[k] * ne;
        }
        case PER_ELEMENT: return static_cast<std::int64_t>(d.NLOADCASE) * ne;
        case CURVE: return static_cast<std::int64_t>(CURVE_STEPS) * d.NLOADCASE * ne;
        case ONCE: return ne;
    }
    return 0;
}

bool fits_32bit_records(const ResultDims& d) {
    for (int f = 0; f < NRESULTFILE; ++f)
        if (result_file_records(static_cast<ResultFile>(f), d) > std::numeric_limits<std::int32_t>::max())
            return false;
    return true;
}

}  // namespace qm::FORCEDVIBRATION
