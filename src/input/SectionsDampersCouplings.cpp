#include "input/SectionsDampersCouplings.h"

#include <array>

#include "components/GlobalGeislingerCoupling.h"
#include "components/GlobalMass.h"
#include "components/GlobalProgressiveCoupling.h"
#include "components/GlobalShaft.h"
#include "input/SectionsMachines.h"
#include "base/ComponentCodes.h"
#include "base/StringOperation.h"
#include "base/ValueReader.h"

namespace qm::IMPORTINPUTFILE {

namespace {

using machine_sections::read_message;


// Line 1 of every damper and coupling: Id and isDefaultPowerLoss.
template <class Record>
bool read_head(InputReader& reader, Record& record) {
    int id = 0, isDefaultPowerLoss = 0;
    if (!ValueReader(reader.values).read_all(id, isDefaultPowerLoss))
        return reader.fail(read_message("Id, isDefaultPowerLoss"));
    record.ID = id;
    record.ISDEFAULTPOWERLOSS = isDefaultPowerLoss != 0;
    return true;
}

void mark_mass(MassTable& masses, int id, int componentType, int massType, int componentId) {
    machine_sections::mark_inertia(masses, id, componentType, massType, componentId);
}

void mark_shaft(ShaftTable& shafts, int row, int componentType, int shaftType, int componentId) {
    if (row == 0) return;  // the data check reports a missing element
    ShaftRecord& shaft = shafts(row);
    shaft.COMPONENTTYPE = componentType;
    shaft.SHAFTTYPE = shaftType;
    shaft.COMPONENTID = componentId;
}

// A damper's two inertias and the shaft joining them.
void mark_damper(InputReader& reader, int id, int code, int nodeA, int typeA, int nodeB, int typeB,
                 int shaftType) {
    mark_mass(reader.tables.MASS_TABLE, nodeA, code, typeA, id);
    mark_mass(reader.tables.MASS_TABLE, nodeB, code, typeB, id);
    mark_shaft(reader.tables.SHAFT_TABLE, GLOBAL_SHAFT::GET_SHAFT_ISHAFTBYNODE(reader.tables.SHAFT_TABLE, nodeA, nodeB),
               code, shaftType, id);
}

// The first word of the next line, in capitals.
std::string next_word(InputReader& reader) {
    reader.next_line();
    std::string word = reader.line;
    STRINGOPERATION::STRINGFIRSTWORD(word);
    STRINGOPERATION::STRINGUPCASE(word);
    return STRINGOPERATION::trimmed(word);
}

// Rubber and steel spring dampers share their layout: two nodes and the damping.
template <class Record>
bool read_two_node_damper(InputReader& reader, Record& damper, int& nodeA, int& nodeB, const char* items) {
    if (!read_head(reader, damper)) return false;
    reader.next_line();
    double absdamping = 0.0;
    if (!ValueReader(reader.line).read_all(nodeA, nodeB, absdamping)) return reader.fail(read_message(items));
    damper.ABSDAMPING = absdamping;
    return true;
}

}  // namespace

bool SECTION_VISCOUSDAMPER(InputReader& reader, int row) {
    ViscousDamperRecord& damper = reader.tables.VISCOUSDAMPER_TABLE(row);
    if (!read_head(reader, damper)) return false;
    reader.next_line();
    int casing = 0, ring = 0, isCustomDamping = 0;
    double absdamping = 0.0;
    // The message names three values, but the custom damping flag is always required too.
    if (!ValueReader(reader.line).read_all(casing, ring, absdamping, isCustomDamping))
        return reader.fail(read_message("CasingNode, RingNode, AbsDamping"));
    damper.CASINGNODE = casing;
    damper.RINGNODE = ring;
    damper.ABSDAMPING = absdamping;
    damper.ISCUSTOMDAMPING = isCustomDamping != 0;
    if (damper.ISCUSTOMDAMPING) {
        reader.next_line();
        damper.CUSTOMDAMPINGFILE = machine_sections::side_file_name(reader.line);
        damper.SIDEFILEDIR = reader.model_dir;
    }
    mark_damper(reader, damper.ID, CODES::COMPONENT_VISCOUSDAMPER, casing, CODES::MASSTYPE_VISCOUSDAMPERCASING, ring,
                CODES::MASSTYPE_VISCOUSDAMPERRING, CODES::SHAFTTYPE_VISCOUSDAMPERSPRING);
    return true;
}

bool SECTION_RUBBERDAMPER(InputReader& reader, int row) {
    RubberDamperRecord& damper = reader.tables.RUBBERDAMPER_TABLE(row);
    int turning = 0, plate = 0;
    if (!read_two_node_damper(reader, damper, turning, plate, "TurningMassNode, DrivePlateNode, AbsDamping"))
        return false;
    damper.TURNINGMASSNODE = turning;
    damper.DRIVEPLATENODE = plate;
    mark_damper(reader, damper.ID, CODES::COMPONENT_RUBBERDAMPER, turning, CODES::MASSTYPE_RUBBERDAMPERTURNINGMASS,
                plate, CODES::MASSTYPE_RUBBERDAMPERDRIVEPLATE, CODES::SHAFTTYPE_RUBBERDAMPER);
    return true;
}

bool SECTION_STEELSPRINGDAMPER(InputReader& reader, int row) {
    SteelSpringDamperRecord& damper = reader.tables.STEELSPRINGDAMPER_TABLE(row);
    int outer = 0, inner = 0;
    if (!read_two_node_damper(reader, damper, outer, inner, "OuterMemberNode, InnerMemberNode, AbsDamping"))
        return false;
    damper.OUTERMEMBERNODE = outer;
    damper.INNERMEMBERNODE = inner;
    mark_damper(reader, damper.ID, CODES::COMPONENT_STEELSPRINGDAMPER, outer, CODES::MASSTYPE_STEELSPRINGDAMPEROUTER,
                inner, CODES::MASSTYPE_STEELSPRINGDAMPERINNER, CODES::SHAFTTYPE_STEELSPRINGDAMPER);
    return true;
}

bool SECTION_LINEARCOUPLING(InputReader& reader, int row) {
    LinearCouplingRecord& coupling = reader.tables.LINEARCOUPLING_TABLE(row);
    if (!read_head(reader, coupling)) return false;
    reader.next_line();
    int shaftnode = 0;
    double torque = 0.0, stiffness = 0.0;
    if (!ValueReader(reader.line).read_all(shaftnode, torque, stiffness))
        return reader.fail(read_message("ShaftNode, NominalTorque, NominalStiffness"));
    coupling.SHAFTNODE = shaftnode;
    coupling.NOMINALTORQUE = torque;
    coupling.NOMINALSTIFFNESS = stiffness;
    // A linear coupling's stiffness is that of its shaft element.
    const int shaft = GLOBAL_SHAFT::GET_SHAFT_ISHAFT(reader.tables.SHAFT_TABLE, shaftnode);
    mark_shaft(reader.tables.SHAFT_TABLE, shaft, CODES::COMPONENT_LINEARCOUPLING, CODES::SHAFTTYPE_LINEARCOUPLING, coupling.ID);
    if (shaft != 0) reader.tables.SHAFT_TABLE(shaft).STIFFNESS = stiffness;
    return true;
}

bool SECTION_PROGRESSIVECOUPLING(InputReader& reader, int row) {
    ProgressiveCouplingTable& table = reader.tables.PROGRESSIVECOUPLING_TABLE;
    ProgressiveCouplingRecord& coupling = table(row);
    if (!read_head(reader, coupling)) return false;
    reader.next_line();
    int shaftnode = 0;
    double torque = 0.0;
    std::array<double, 5> k{};
    if (!ValueReader(reader.line).read_all(shaftnode, torque, k[0], k[1], k[2], k[3], k[4]))
        return reader.fail(read_message("ShaftNode, NominalTorque, NominalStiffness(5)"));
    coupling.SHAFTNODE = shaftnode;
    GLOBAL_PROGRESSIVECOUPLING::SET_PROGRESSIVECOUPLING_NOMINALTORQUE(table, row, torque);
    coupling.NOMINALSTIFFNESS = k;
    mark_shaft(reader.tables.SHAFT_TABLE, GLOBAL_SHAFT::GET_SHAFT_ISHAFT(reader.tables.SHAFT_TABLE, shaftnode),
               CODES::COMPONENT_PROGRESSIVECOUPLING, CODES::SHAFTTYPE_PROGRESSIVECOUPLING, coupling.ID);
    return true;
}

bool SECTION_GEISLINGERCOUPLING(InputReader& reader, int row) {
    using namespace GLOBAL_GEISLINGERCOUPLING;
    GeislingerCouplingTable& table = reader.tables.GEISLINGERCOUPLING_TABLE;
    GeislingerCouplingRecord& coupling = table(row);
    if (!read_head(reader, coupling)) return false;
    reader.next_line();
    int shaftnode = 0;
    double torque = 0.0, stiffness = 0.0, frequency = 0.0, viscosity = 0.0;
    if (!ValueReader(reader.line).read_all(shaftnode, torque, stiffness, frequency, viscosity))
        return reader.fail(
            read_message("ShaftNode, NominalTorque, StaticStiffness, CharacteristicFrequency, OilViscosity"));
    coupling.SHAFTNODE = shaftnode;
    coupling.NOMINALTORQUE = torque;
    coupling.STATICSTIFFNESS = stiffness;
    coupling.CHARACTERISTICFREQUENCY = frequency;
    coupling.OILVISCOSITY = viscosity;

    // A word that is none of a line's two keywords keeps the value of the Geislinger
    // coupling read before, or 0 for the first.
    const GeislingerCouplingRecord* previous = row > 1 ? &table(row - 1) : nullptr;
    auto choose = [](const std::string& word, const char* first, int firstCode, const char* second,
                     int secondCode, int fallback) {
        if (word == first) return firstCode;
        if (word == second) return secondCode;
        return fallback;
    };
    coupling.DAMPINGTYPE = choose(next_word(reader), "GEISLINGERDAMPING", GEISLINGERDAMPING, "GENERALDAMPING",
                                  GENERALDAMPING, previous ? previous->DAMPINGTYPE : 0);
    if (coupling.DAMPINGTYPE == GEISLINGERDAMPING)
        coupling.OILSUPPLYTYPE = choose(next_word(reader), "WITHPRESSURIZED", WITHPRESSURIZED, "WITHOUTPRESSURIZED",
                                        WITHOUTPRESSURIZED, previous ? previous->OILSUPPLYTYPE : 0);
    if (coupling.OILSUPPLYTYPE == WITHOUTPRESSURIZED)
        coupling.DESIGNTYPE = choose(next_word(reader), "MULTISPRING", MULTISPRING, "DUALSPRING", DUALSPRING,
                                     previous ? previous->DESIGNTYPE : 0);
    mark_shaft(reader.tables.SHAFT_TABLE, GLOBAL_SHAFT::GET_SHAFT_ISHAFT(reader.tables.SHAFT_TABLE, shaftnode),
               CODES::COMPONENT_GEISLINGERCOUPLING, CODES::SHAFTTYPE_GEISLINGERCOUPLING, coupling.ID);
    return true;
}

}  // namespace qm::IMPORTINPUTFILE
