// The sections of the two cylinder machines, DIESEL and RECIPROCATINGPUMP: a line of
// design data, then one line per cylinder quantity with a value for each cylinder.
#include <array>
#include <cmath>

#include "input/SectionsMachines.h"
#include "base/ComponentCodes.h"
#include "base/ValueReader.h"

namespace qm::IMPORTINPUTFILE {

using namespace machine_sections;

namespace {

constexpr double BAR = 100000.0;             // Pa per bar
constexpr double PUMP_BANK_ANGLE = 180.0;    // degrees between the sides of an opposite pump

template <class T>
using PerCylinder = std::array<T, GLOBAL_DIESEL::MAXCYLINDER>;

// The next line of the section, holding one value per cylinder; nothing is stored unless
// all n values read.
template <class T>
bool read_cylinder_line(InputReader& reader, int n, PerCylinder<T>& values) {
    reader.next_line();
    PerCylinder<T> read{};
    ValueReader line(reader.line);
    for (int j = 0; j < n; ++j)
        if (!line.read(read[static_cast<std::size_t>(j)])) return false;
    values = read;
    return true;
}

PerCylinder<double> in_radians(PerCylinder<double> angles) {
    for (double& a : angles) a = radians(a);
    return angles;
}

// The V angle brought into one engine cycle, [0, 360) for a two-stroke and [0, 720) for a
// four-stroke engine. The remainder is exact, so this equals shifting by whole periods.
double cycle_angle(double angle, int nStroke) {
    const double period = nStroke == 2 ? 360.0 : 720.0;
    double a = std::fmod(angle, period);
    if (a < 0.0) a += period;
    if (a >= period) a -= period;
    return a == 0.0 ? 0.0 : a;
}

bool has_status(const PerCylinder<int>& status, int n, int code) {
    for (int j = 0; j < n; ++j)
        if (status[static_cast<std::size_t>(j)] == code) return true;
    return false;
}

// The first 20 characters of a name, trailing blanks dropped.
std::string short_name(const std::string& name, int length) {
    std::string text = name.substr(0, static_cast<std::size_t>(length));
    const std::size_t end = text.find_last_not_of(' ');
    text.erase(end == std::string::npos ? 0 : end + 1);
    return text;
}

}  // namespace

bool SECTION_DIESEL(InputReader& reader, int row) {
    DieselTable& table = reader.tables.DIESEL_TABLE;
    DieselRecord& engine = table(row);
    engine.NLOADCASE = reader.nLoadCase;

    int id = 0;
    std::string name;
    if (!ValueReader(reader.values).read_all(id, name)) return reader.fail(read_message("Id"));
    engine.ID = id;
    GLOBAL_DIESEL::SET_DIESEL_NAME(table, row, name);

    reader.next_line();
    int nStroke = 0, nCylinder = 0, isVengine = 0, isGenset = 0;
    double power = 0.0, speed = 0.0, phase = 0.0, vAngle = 0.0, mipLimit = 0.0;
    // More cylinders than a bank holds is refused like a value that does not convert.
    if (!ValueReader(reader.line)
             .read_all(power, speed, nStroke, nCylinder, phase, isVengine, vAngle, isGenset, mipLimit) ||
        nCylinder > GLOBAL_DIESEL::MAXCYLINDER)
        return reader.fail(
            read_message("McrPower, McrSpeed, nStroke, nCylinder, ExcitationPhase, isVengine, Vangle"));
    set_rating(engine, power, speed);
    engine.NSTROKE = nStroke;
    engine.NCYLINDER = nCylinder;
    engine.EXCITATIONPHASE = radians(phase);
    engine.ISVENGINE = isVengine != 0;
    engine.VANGLE = isVengine != 0 ? cycle_angle(vAngle, nStroke) : vAngle;
    engine.ISGENSET = isGenset != 0;
    reader.isGenset = isGenset;
    engine.MIPLIMIT = mipLimit;

    // Bank B is taken from the file only for isVengine 1; its lines stand there in any case.
    const bool storesBankB = isVengine == 1;
    PerCylinder<int> cylinders{}, statusA{}, statusB{};
    PerCylinder<double> angleA{}, angleB{}, percentA{}, percentB{};
    if (!read_cylinder_line(reader, nCylinder, cylinders)) return reader.fail(read_message("Cylinders"));
    engine.CYLINDERS = cylinders;
    if (!read_cylinder_line(reader, nCylinder, angleA)) return reader.fail(read_message("FiringAngleA"));
    engine.FIRINGANGLEA = in_radians(angleA);
    if (!read_cylinder_line(reader, nCylinder, angleB)) return reader.fail(read_message("FiringAngleB"));
    if (storesBankB) engine.FIRINGANGLEB = in_radians(angleB);
    if (!read_cylinder_line(reader, nCylinder, statusA)) return reader.fail(read_message("FiringStatusA"));
    engine.FIRINGSTATUSA = statusA;
    if (!read_cylinder_line(reader, nCylinder, statusB)) return reader.fail(read_message("FiringStatusB"));
    if (storesBankB) engine.FIRINGSTATUSB = statusB;
    if (!read_cylinder_line(reader, nCylinder, percentA)) return reader.fail(read_message("FiringStatusA"));
    engine.FIRINGPERCENTA = percentA;
    if (!read_cylinder_line(reader, nCylinder, percentB)) return reader.fail(read_message("FiringStatusB"));
    if (storesBankB) engine.FIRINGPERCENTB = percentB;
    engine.HASPARTIALFIRING = has_status(statusA, nCylinder, GLOBAL_DIESEL::PARTIALFIRING) ||
                              (storesBankB && has_status(statusB, nCylinder, GLOBAL_DIESEL::PARTIALFIRING));

    reader.next_line();
    int isTheoretical = 0, veeFiringType = 0, isFormulaDamping = 0;
    double bore = 0.0, stroke = 0.0, conrodRatio = 0.0, recipMass = 0.0, me = 0.0;
    if (!ValueReader(reader.line)
             .read_all(bore, stroke, conrodRatio, recipMass, me, isTheoretical, veeFiringType, isFormulaDamping))
        return reader.fail(read_message("Bore, Stroke, ConrodRatio, RecipMass, Me, isTheoreticalPresure, "
                                        "VeeFiringType, isFormulaDamping"));
    engine.BORE = bore / 1000.0;
    engine.STROKE = stroke / 1000.0;
    engine.CONRODRATIO = conrodRatio;
    engine.RECIPMASS = recipMass;
    engine.ME = me / 100.0;
    engine.ISTHEORETICALPRESURE = isTheoretical != 0;
    GLOBAL_DIESEL::SET_DIESEL_VEEFIRINGTYPE(table, row, veeFiringType);
    engine.ISFORMULADAMPING = isFormulaDamping != 0;

    if (engine.ISTHEORETICALPRESURE) {
        reader.next_line();
        double pMax = 0.0, pComp = 0.0, compExp = 0.0, expaExp = 0.0, compRatio = 0.0, pChargeAir = 0.0,
               tChargeAir = 0.0;
        if (!ValueReader(reader.line).read_all(pMax, pComp, compExp, expaExp, compRatio, pChargeAir, tChargeAir))
            return reader.fail(
                read_message("PMax, PComp, CompExp, ExpaExp, CompRatio, PChargeAir, TChargeAir"));
        engine.PMAX = pMax * BAR;
        engine.PCOMP = pComp * BAR;
        engine.COMPEXP = compExp;
        engine.EXPAEXP = expaExp;
        engine.COMPRATIO = compRatio;
        engine.PCHARGEAIR = pChargeAir * BAR;
        engine.TCHARGEAIR = tChargeAir;

        reader.next_line();
        double te = 0.0, formFactor = 0.0, ignition = 0.0, endOfComb = 0.0, exhaustStart = 0.0,
               inletStart = 0.0, inletClose = 0.0;
        if (!ValueReader(reader.line)
                 .read_all(te, formFactor, ignition, endOfComb, exhaustStart, inletStart, inletClose))
            return reader.fail(read_message("Te, FormFactor, AngleIgnition, AngleEndOfComb, AngleExhaustStart, "
                                            "AngleInletStart, AngleInletClose"));
        engine.TE = te / 100.0;
        engine.FORMFACTOR = formFactor;
        engine.ANGLEIGNITION = ignition;
        engine.ANGLEENDOFCOMB = endOfComb;
        engine.ANGLEEXHAUSTSTART = exhaustStart;
        engine.ANGLEINLETSTART = inletStart;
        engine.ANGLEINLETCLOSE = inletClose;
    } else {
        // Each of the two lines is, as a whole, the name of a harmonic file.
        reader.next_line();
        GLOBAL_DIESEL::SET_DIESEL_NORMALHARMONICFILE(table, row, side_file_name(reader.line));
        reader.next_line();
        GLOBAL_DIESEL::SET_DIESEL_MISHARMONICFILE(table, row, side_file_name(reader.line));
        engine.SIDEFILEDIR = reader.model_dir;
    }

    if (engine.ISFORMULADAMPING) {
        reader.next_line();
        double cylDamping = 0.0, cylExponent = 0.0, crankDamping = 0.0, crankExponent = 0.0;
        if (!ValueReader(reader.line).read_all(cylDamping, cylExponent, crankDamping, crankExponent))
            return reader.fail(
                read_message("CylAbsDamping, ExpCylAbsDamping, CrankRelDamping, ExpCrankRelDamping"));
        engine.CYLABSDAMPING = cylDamping;
        engine.EXPCYLABSDAMPING = cylExponent;
        engine.CRANKRELDAMPING = crankDamping;
        engine.EXPCRANKRELDAMPING = crankExponent;
    }

    for (int j = 0; j < nCylinder; ++j)
        mark_inertia(reader.tables.MASS_TABLE, cylinders[static_cast<std::size_t>(j)], CODES::COMPONENT_DIESEL,
                     CODES::MASSTYPE_DIESELCYLINDER, id);
    return true;
}

bool SECTION_RECIPROCATINGPUMP(InputReader& reader, int row) {
    ReciprocatingPumpTable& table = reader.tables.RECIPROCATINGPUMP_TABLE;
    ReciprocatingPumpRecord& pump = table(row);

    int id = 0;
    std::string name;
    if (!ValueReader(reader.values).read_all(id, name)) return reader.fail(read_message("Id, PumpName"));
    pump.ID = id;
    pump.NAME = short_name(name, GLOBAL_RECIPROCATINGPUMP::NAMELENGTH);

    reader.next_line();
    int nCylinder = 0, isOpposite = 0, isDoubleActing = 0;
    double power = 0.0, speed = 0.0, phase = 0.0;
    // More cylinders than a side holds is refused like a value that does not convert.
    if (!ValueReader(reader.line).read_all(power, speed, nCylinder, phase, isOpposite, isDoubleActing) ||
        nCylinder > GLOBAL_RECIPROCATINGPUMP::MAXCYLINDER)
        return reader.fail(
            read_message("McrPower, McrSpeed, nPumpCylinder, ExcitationPhase, isOpposite, isDoubleActing"));
    set_rating(pump, power, speed);
    pump.NCYLINDER = nCylinder;
    pump.EXCITATIONPHASE = radians(phase);
    pump.ISOPPOSITE = isOpposite != 0;
    pump.ISDOUBLEACTING = isDoubleActing != 0;

    PerCylinder<int> cylinders{};
    PerCylinder<double> angleA{}, angleB{};
    if (!read_cylinder_line(reader, nCylinder, cylinders)) return reader.fail(read_message("PumpCylinders"));
    pump.CYLINDERS = cylinders;
    if (!read_cylinder_line(reader, nCylinder, angleA)) return reader.fail(read_message("DischargeAngleA"));
    pump.DISCHARGEANGLEA = in_radians(angleA);
    // Side B is taken from the file only for isOpposite 1; its line stands there in any case.
    if (!read_cylinder_line(reader, nCylinder, angleB)) return reader.fail(read_message("DischargeAngleB"));
    if (isOpposite == 1) pump.DISCHARGEANGLEB = in_radians(angleB);

    reader.next_line();
    int isSimplified = 0;
    double bore = 0.0, stroke = 0.0, conrodRatio = 0.0, recipMass = 0.0;
    if (!ValueReader(reader.line).read_all(bore, stroke, conrodRatio, recipMass, isSimplified))
        return reader.fail(read_message("Bore, Stroke, ConrodRatio, RecipMass, isSimplifiedPresure"));
    pump.BORE = bore / 1000.0;
    pump.STROKELENGTH = stroke / 1000.0;
    pump.CONRODRATIO = conrodRatio;
    pump.RECIPMASS = recipMass;
    pump.ISSIMPLIFIEDPRESSURE = isSimplified != 0;

    reader.next_line();
    if (pump.ISSIMPLIFIEDPRESSURE) {
        int orderNumber = 0;
        if (!ValueReader(reader.line).read(orderNumber))
            return reader.fail(read_message("ReciprocatingPumpOrderNumber"));
        pump.RECIPROCATINGPUMPORDERNUMBER = orderNumber;

        reader.next_line();
        std::array<double, 4> order{};
        if (!ValueReader(reader.line).read_all(order[0], order[1], order[2], order[3]))
            return reader.fail(read_message("Reciprocating pump torque order"));
        GLOBAL_RECIPROCATINGPUMP::SET_RECIPROCATINGPUMP_RECIPROCATINGPUMPORDER(table, row, order[0], order[1],
                                                                               order[2], order[3]);
        reader.next_line();
        std::array<double, 4> torque{};
        if (!ValueReader(reader.line).read_all(torque[0], torque[1], torque[2], torque[3]))
            return reader.fail(read_message("Reciprocating pump torque amplitude"));
        GLOBAL_RECIPROCATINGPUMP::SET_RECIPROCATINGPUMP_RECIPROCATINGPUMPTORQUEPERCENT(
            table, row, torque[0] / 100.0, torque[1] / 100.0, torque[2] / 100.0, torque[3] / 100.0);
    } else {
        // The whole line is the name of the pump's harmonic file.
        pump.PUMPHARMONICFILE = side_file_name(reader.line);
        pump.SIDEFILEDIR = reader.model_dir;
    }

    pump.VANGLE = PUMP_BANK_ANGLE;
    pump.NLOADCASE = reader.nLoadCase;
    for (int j = 0; j < nCylinder; ++j)
        mark_inertia(reader.tables.MASS_TABLE, cylinders[static_cast<std::size_t>(j)], CODES::COMPONENT_RECIPROCATINGPUMP,
                     CODES::MASSTYPE_PUMPCYLINDER, id);
    return true;
}

}  // namespace qm::IMPORTINPUTFILE
