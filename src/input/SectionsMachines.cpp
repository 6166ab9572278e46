#include "input/SectionsMachines.h"

#include <array>

#include "base/ComponentCodes.h"
#include "base/Constants.h"
#include "base/GlobalParameter.h"
#include "base/StringOperation.h"
#include "base/ValueReader.h"

namespace qm::IMPORTINPUTFILE {

namespace machine_sections {

std::string read_message(const std::string& items) {
    return "Error occurs when reading \"" + items + "\" in input file line ";
}

double mcr_torque(double mcrPower, double mcrSpeed) { return mcrPower / (PI * mcrSpeed / 30.0); }

double radians(double degrees) { return PI * degrees / 180.0; }

void mark_inertia(MassTable& masses, int id, int componentType, int massType, int componentId) {
    const int row = GLOBAL_MASS::GET_MASS_IMASS(masses, id);
    if (row == 0) return;
    MassRecord& mass = masses(row);
    mass.COMPONENTTYPE = componentType;
    mass.MASSTYPE = massType;
    mass.COMPONENTID = componentId;
}

std::string side_file_name(const std::string& text) {
    return STRINGOPERATION::trimmed(text.substr(0, static_cast<std::size_t>(GLOBAL_PARAMETER::FILENAME_LENGTH)));
}

}  // namespace machine_sections

using namespace machine_sections;

namespace {

using Four = std::array<double, 4>;

// The Id behind the keyword.
bool read_id(InputReader& reader, int& id) {
    if (ValueReader(reader.values).read(id)) return true;
    return reader.fail(read_message("Id"));
}

// The next line of the section, holding four reals.
bool read_four(InputReader& reader, Four& v, const char* items) {
    reader.next_line();
    if (ValueReader(reader.line).read_all(v[0], v[1], v[2], v[3])) return true;
    return reader.fail(read_message(items));
}

Four percent(const Four& v) { return {v[0] / 100.0, v[1] / 100.0, v[2] / 100.0, v[3] / 100.0}; }

// The order line and the amplitude line of a generator, centrifugal pump or electric motor,
// each stored as soon as it is read; the amplitudes come in percent and are kept as fractions.
template <class MachineTable>
using SetFour = void (*)(MachineTable&, int, double, double, double, double);

template <class MachineTable>
bool read_orders(InputReader& reader, MachineTable& table, int row, const char* orderItems,
                 SetFour<MachineTable> setOrder, const char* torqueItems, SetFour<MachineTable> setFraction) {
    Four order{}, torque{};
    if (!read_four(reader, order, orderItems)) return false;
    setOrder(table, row, order[0], order[1], order[2], order[3]);
    if (!read_four(reader, torque, torqueItems)) return false;
    const Four share = percent(torque);
    setFraction(table, row, share[0], share[1], share[2], share[3]);
    return true;
}

// Gas and steam turbines: the node and the rating.
bool read_turbine(InputReader& reader, TurbineRecord& turbine, const char* items, int componentType,
                  int massType) {
    if (!read_id(reader, turbine.ID)) return false;
    reader.next_line();
    int node = 0;
    double power = 0.0, speed = 0.0;
    if (!ValueReader(reader.line).read_all(node, power, speed)) return reader.fail(read_message(items));
    turbine.TURBINENODE = node;
    set_rating(turbine, power, speed);
    mark_inertia(reader.tables.MASS_TABLE, node, componentType, massType, turbine.ID);
    return true;
}

}  // namespace

bool SECTION_ELECTRICMOTOR(InputReader& reader, int row) {
    ElectricMotorTable& table = reader.tables.ELECTRICMOTOR_TABLE;
    ElectricMotorRecord& motor = table(row);
    if (!read_id(reader, motor.ID)) return false;

    reader.next_line();
    int node = 0, excitationType = 0, orderNumber = 0;
    double power = 0.0, speed = 0.0, constFrequency = 0.0;
    if (!ValueReader(reader.line).read_all(node, power, speed, excitationType, constFrequency, orderNumber))
        return reader.fail(read_message(
            "ElectricMotorNode, McrPower, McrSpeed, ExcitationType, ConstExcitationFreq, MotorOrderNumber"));
    motor.ELECTRICMOTORNODE = node;
    set_rating(motor, power, speed);
    motor.EXCITATIONTYPE = excitationType;
    motor.CONSTEXCITATIONFREQ = constFrequency;
    GLOBAL_ELECTRICMOTOR::SET_ELECTRICMOTOR_MOTORORDERNUMBER(table, row, orderNumber);

    using namespace GLOBAL_ELECTRICMOTOR;
    if (!read_orders(reader, table, row, "Electric motor order", SET_ELECTRICMOTOR_MOTORORDER,
                     "Electric motor torque amplitude", SET_ELECTRICMOTOR_MOTORTORQUEPERCENT))
        return false;

    mark_inertia(reader.tables.MASS_TABLE, node, CODES::COMPONENT_ELECTRICMOTOR, CODES::MASSTYPE_ELECTRICMOTOR, motor.ID);
    return true;
}

bool SECTION_GENERATOR(InputReader& reader, int row) {
    GeneratorTable& table = reader.tables.GENERATOR_TABLE;
    GeneratorRecord& generator = table(row);
    if (!read_id(reader, generator.ID)) return false;

    reader.next_line();
    int node = 0, orderNumber = 0;
    double power = 0.0, speed = 0.0;
    if (!ValueReader(reader.line).read_all(node, power, speed, orderNumber))
        return reader.fail(read_message("GeneratorNode, McrPower, McrSpeed, GeneratorOrderNumber"));
    generator.GENERATORNODE = node;
    set_rating(generator, power, speed);
    generator.GENERATORORDERNUMBER = orderNumber;

    using namespace GLOBAL_GENERATOR;
    if (!read_orders(reader, table, row, "Generator torque order", SET_GENERATOR_GENERATORORDER,
                     "Generator torque amplitude", SET_GENERATOR_GENERATORTORQUEPERCENT))
        return false;

    mark_inertia(reader.tables.MASS_TABLE, node, CODES::COMPONENT_GENERATOR, CODES::MASSTYPE_GENERATOR, generator.ID);
    return true;
}

bool SECTION_CENTRIFUGALPUMP(InputReader& reader, int row) {
    CentrifugalPumpTable& table = reader.tables.CENTRIFUGALPUMP_TABLE;
    CentrifugalPumpRecord& pump = table(row);
    if (!read_id(reader, pump.ID)) return false;

    reader.next_line();
    int node = 0, orderNumber = 0;
    double power = 0.0, speed = 0.0, phase = 0.0;
    if (!ValueReader(reader.line).read_all(node, power, speed, orderNumber, phase))
        return reader.fail(read_message(
            "CentrifugalPumpNode, McrPower, McrSpeed, CentrifugalPumpOrderNumber, CentrifugalPumpPhaseAngle"));
    pump.CENTRIFUGALPUMPNODE = node;
    set_rating(pump, power, speed);
    pump.CENTRIFUGALPUMPORDERNUMBER = orderNumber;
    pump.CENTRIFUGALPUMPPHASEANGLE = radians(phase);

    using namespace GLOBAL_CENTRIFUGALPUMP;
    if (!read_orders(reader, table, row, "Centrifugal pump torque order", SET_CENTRIFUGALPUMP_CENTRIFUGALPUMPORDER,
                     "Centrifugal pump torque amplitude", SET_CENTRIFUGALPUMP_CENTRIFUGALPUMPTORQUEPERCENT))
        return false;

    mark_inertia(reader.tables.MASS_TABLE, node, CODES::COMPONENT_CENTRIFUGALPUMP, CODES::MASSTYPE_CENTRIFUGALPUMP, pump.ID);
    return true;
}

bool SECTION_GASTURBINE(InputReader& reader, int row) {
    return read_turbine(reader, reader.tables.GASTURBINE_TABLE(row), "GasTurbineNode, McrPower, McrSpeed",
                        CODES::COMPONENT_GASTURBINE, CODES::MASSTYPE_GASTURBINE);
}

bool SECTION_STEAMTURBINE(InputReader& reader, int row) {
    return read_turbine(reader, reader.tables.STEAMTURBINE_TABLE(row), "SteamTurbineNode, McrPower, McrSpeed",
                        CODES::COMPONENT_STEAMTURBINE, CODES::MASSTYPE_STEAMTURBINE);
}

bool SECTION_PROPELLER(InputReader& reader, int row) {
    PropellerTable& table = reader.tables.PROPELLER_TABLE;
    PropellerRecord& propeller = table(row);
    propeller.NLOADCASE = reader.nLoadCase;
    if (!read_id(reader, propeller.ID)) return false;

    reader.next_line();
    int node = 0, nBlade = 0, isDucted = 0;
    double power = 0.0, speed = 0.0, inertiaAir = 0.0, inertiaWater = 0.0;
    if (!ValueReader(reader.line).read_all(node, power, speed, nBlade, inertiaAir, inertiaWater, isDucted))
        return reader.fail(read_message(
            "PropellerNode, McrPower, McrSpeed, nBlade, InertiaAir, InertiaWater, isDucted"));
    propeller.PROPELLERNODE = node;
    set_rating(propeller, power, speed);
    propeller.NBLADE = nBlade;
    propeller.INERTIAAIR = inertiaAir;
    propeller.INERTIAWATER = inertiaWater;
    propeller.ISDUCTED = isDucted != 0;

    reader.next_line();
    int isFixedPitch = 0;
    double db = 0.0, di = 0.0, pitchRatio = 0.0, areaRatio = 0.0, pitchPercent = 0.0, dynMagnifier = 0.0;
    if (!ValueReader(reader.line).read_all(db, di, pitchRatio, areaRatio, isFixedPitch, pitchPercent, dynMagnifier))
        return reader.fail(read_message(
            "Db, Di, PitchRatio, ExpAreaRatio, isFixedPitch, PitchPercent, DynMagnifier"));
    propeller.DB = db / 1000.0;
    propeller.DI = di / 1000.0;
    propeller.PITCHRATIO = pitchRatio;
    propeller.EXPAREARATIO = areaRatio;
    propeller.ISFIXEDPITCH = isFixedPitch != 0;
    propeller.PITCHPERCENT = pitchPercent / 100.0;

    // The damping method is the first word of the line; the seven numbers follow it.
    reader.next_line();
    std::string method = reader.line;
    STRINGOPERATION::STRINGFIRSTWORD(method);
    STRINGOPERATION::STRINGUPCASE(method);
    method = STRINGOPERATION::trimmed(method);
    std::string numbers = reader.line;
    STRINGOPERATION::STRINGWITHOUTFIRSTWORD(numbers);
    int considerPhase = 0;
    double archer = 0.0, frahm = 0.0, knuckle = 0.0, torque1 = 0.0, torque2 = 0.0, phase = 0.0;
    if (!ValueReader(numbers).read_all(archer, frahm, knuckle, torque1, torque2, phase, considerPhase))
        return reader.fail(read_message(
            "ArcherNumber, FrahmNumber,  KnucklePoint, TorquePercent1, TorquePercent2, ExcitationPhase, "
            "ConsiderPhaseAngle"));
    if (method == "SCHWANEKE") {
        propeller.DAMPINGMETHOD = GLOBAL_PROPELLER::SCHWANEKE;
    } else if (method == "ARCHER") {
        propeller.DAMPINGMETHOD = GLOBAL_PROPELLER::ARCHER;
        propeller.ARCHERNUMBER = archer;
    } else if (method == "FRAHM") {
        propeller.DAMPINGMETHOD = GLOBAL_PROPELLER::FRAHM;
        propeller.FRAHMNUMBER = frahm;
    } else if (method == "MANUAL") {
        propeller.DAMPINGMETHOD = GLOBAL_PROPELLER::MANUAL;
        propeller.DYNMAGNIFIER = dynMagnifier;
    } else if (method == "VARIABLE") {
        propeller.DAMPINGMETHOD = GLOBAL_PROPELLER::VARIABLE;
        propeller.DYNMAGNIFIERFORKNUCKLEPOINT = dynMagnifier;
        propeller.DYNMAGNIFIER = dynMagnifier;
        propeller.KNUCKLEPOINT = knuckle;
    } else if (row > 1) {
        // An unknown word carries on the method of the propeller read before this one.
        propeller.DAMPINGMETHOD = table(row - 1).DAMPINGMETHOD;
    }
    propeller.TORQUEPERCENT1 = torque1 / 100.0;
    propeller.TORQUEPERCENT2 = torque2 / 100.0;
    propeller.EXCITATIONPHASE = radians(phase);
    propeller.CONSIDERPHASEANGLE = considerPhase != 0;

    reader.next_line();
    int isVariableWater = 0;
    ValueReader variableWater(reader.line);
    if (!variableWater.read(isVariableWater))
        return reader.fail(read_message("isVariablePropellerEntrainedWater"));
    propeller.ISVARIABLEENTRAINEDWATER = isVariableWater != 0;
    if (propeller.ISVARIABLEENTRAINEDWATER) {
        reader.next_line();
        std::string file;
        if (!ValueReader(reader.line).read(file))
            return reader.fail(read_message("isVariablePropellerEntrainedWater"));
        GLOBAL_PROPELLER::SET_PROPELLER_VARIABLEENTRAINEDWATERFILE(table, row, side_file_name(file));
        propeller.SIDEFILEDIR = reader.model_dir;
    }

    propeller.HASICEEXCITATION = false;
    mark_inertia(reader.tables.MASS_TABLE, node, CODES::COMPONENT_PROPELLER, CODES::MASSTYPE_PROPELLER, propeller.ID);
    return true;
}

bool SECTION_PROPELLERICE(InputReader& reader, int row) {
    int id = 0;  // read for its form only: the section belongs to the propeller before it
    if (!ValueReader(reader.values).read(id)) return reader.fail(read_message("PropellerIce Id"));
    if (row < 1 || row > GLOBAL_PROPELLER::GET_PROPELLER_NUMBER(reader.tables.PROPELLER_TABLE))
        return reader.fail("Error occurs when reading \"PropellerIce\" without a PROPELLER before it in input file line ");
    PropellerTable& table = reader.tables.PROPELLER_TABLE;
    PropellerRecord& propeller = table(row);

    reader.next_line();
    int corrected = 0;
    if (!ValueReader(reader.line).read(corrected))
        return reader.fail(read_message("isTmaxCorrectedWithActualSpeed"));
    propeller.ISTMAXCORRECTEDWITHACTUALSPEED = corrected != 0;
    propeller.NSPEEDRATIO = propeller.ISTMAXCORRECTEDWITHACTUALSPEED ? 10 : 2;

    // The whole line is the name of the ice excitation file.
    reader.next_line();
    GLOBAL_PROPELLER::SET_PROPELLER_EXCITATIONFILE(table, row, side_file_name(reader.line));
    propeller.SIDEFILEDIR = reader.model_dir;
    propeller.HASICEEXCITATION = true;
    return true;
}

}  // namespace qm::IMPORTINPUTFILE
