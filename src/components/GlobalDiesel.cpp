#include "components/GlobalDiesel.h"

#include <algorithm>
#include <cmath>

#include "components/EngineFunctions.h"
#include "base/Constants.h"
#include "base/GlobalParameter.h"

namespace qm::GLOBAL_DIESEL {

namespace {

// A text field of fixed length: the first `length` characters, without trailing blanks.
std::string fixed_text(const std::string& value, int length) {
    std::string text = value.substr(0, static_cast<std::size_t>(length));
    const std::size_t end = text.find_last_not_of(' ');
    text.erase(end == std::string::npos ? 0 : end + 1);
    return text;
}

// Cylinders of one bank that the algorithms walk: 1..NCYLINDER within the arrays.
int cylinders_per_bank(const DieselRecord& engine) {
    return std::clamp(engine.NCYLINDER, 0, MAXCYLINDER);
}

bool is_firing(int status) { return status == NORMALFIRING || status == PARTIALFIRING; }

// coefficient * (order * speed)^exponent, 0.0 where the power is not finite.
double formula_damping(double coefficient, double exponent, double order, double speed) {
    const double power = std::pow(order * speed, exponent);
    if (!std::isfinite(power)) return 0.0;
    return coefficient * power;
}

}  // namespace

int GET_DIESEL_NUMBER(const DieselTable& table) { return row_count(table); }

int GET_DIESEL_IDIESEL(const DieselTable& table, int id) {
    return first_row_with_id(table, id);
}

bool GET_DIESEL_CONTAINFORMULADAMPING(const DieselTable& table) {
    for (int i = 1; i <= GET_DIESEL_NUMBER(table); ++i)
        if (table(i).ISFORMULADAMPING) return true;
    return false;
}

void SET_DIESEL_VEEFIRINGTYPE(DieselTable& table, int i, int value) {
    if (!is_row(table, i)) return;
    table(i).VEEFIRINGTYPE = value >= 0 && value <= 2 ? value : 2;
}

void SET_DIESEL_NAME(DieselTable& table, int i, const std::string& value) {
    if (!is_row(table, i)) return;
    table(i).NAME = fixed_text(value, NAMELENGTH);
}

void SET_DIESEL_NORMALHARMONICFILE(DieselTable& table, int i, const std::string& value) {
    if (!is_row(table, i)) return;
    table(i).NORMALHARMONICFILE = fixed_text(value, GLOBAL_PARAMETER::FILENAME_LENGTH);
}

void SET_DIESEL_MISHARMONICFILE(DieselTable& table, int i, const std::string& value) {
    if (!is_row(table, i)) return;
    table(i).MISHARMONICFILE = fixed_text(value, GLOBAL_PARAMETER::FILENAME_LENGTH);
}

int cylinder_status(const DieselRecord& engine, int cylinder, bool isBankA) {
    if (cylinder < 1 || cylinder > MAXCYLINDER) return 0;
    const auto& status = isBankA ? engine.FIRINGSTATUSA : engine.FIRINGSTATUSB;
    return status[static_cast<std::size_t>(cylinder - 1)];
}

void CALCULATE_DIESEL_TORQUE(DieselTable& table, int i) {
    if (!is_row(table, i)) return;
    DieselRecord& engine = table(i);
    const double omega = PI * engine.SPEED / 30.0;
    engine.TORQUE = engine.POWER / omega;
}

void CALCULATE_DIESEL_LOADPERCENTAGE(DieselTable& table, int i) {
    if (!is_row(table, i)) return;
    DieselRecord& engine = table(i);
    engine.LOADPERCENTAGE = engine.TORQUE / engine.MCRTORQUE;
}

int GET_DIESEL_NFIRINGCYLINDER(const DieselTable& table, int i) {
    if (!is_row(table, i)) return 0;
    const DieselRecord& engine = table(i);
    int n = 0;
    for (int j = 1; j <= cylinders_per_bank(engine); ++j) {
        if (is_firing(cylinder_status(engine, j, true))) ++n;
        if (engine.ISVENGINE && is_firing(cylinder_status(engine, j, false))) ++n;
    }
    return n;
}

double GET_DIESEL_POWERCYLPERCENTINCREASED(const DieselTable& table, int i) {
    if (!is_row(table, i)) return 0.0;
    const DieselRecord& engine = table(i);
    const int n = GET_DIESEL_NFIRINGCYLINDER(table, i);
    int c = 0;
    double percent = 0.0;
    for (int j = 1; j <= cylinders_per_bank(engine); ++j) {
        const auto k = static_cast<std::size_t>(j - 1);
        if (engine.FIRINGSTATUSA[k] == PARTIALFIRING) {
            ++c;
            percent += engine.FIRINGPERCENTA[k];
        }
        if (engine.ISVENGINE && engine.FIRINGSTATUSB[k] == PARTIALFIRING) {
            ++c;
            percent += engine.FIRINGPERCENTB[k];
        }
    }
    if (n == c) return 1.0;
    const double s = percent / 100.0;
    return (n - s) / (n - c);
}

double CALCULATE_DIESEL_MEPMCR(const DieselTable& table, int i, bool firingOnly) {
    if (!is_row(table, i)) return 0.0;
    const DieselRecord& engine = table(i);
    int z = engine.NCYLINDER;
    if (firingOnly)
        z = GET_DIESEL_NFIRINGCYLINDER(table, i);
    else if (engine.ISVENGINE)
        z = 2 * engine.NCYLINDER;
    const double pc = engine.MCRPOWER / z;
    return ENGINE_FUNCTIONS::CALCULATE_MEP(pc, engine.MCRSPEED, engine.BORE, engine.NSTROKE,
                                           engine.STROKE);
}

void CALCULATE_DIESEL_LOADCASESETTING(DieselTable& table, int i,
                                      const LoadCaseGensetTable& gensetTable, int cylinder,
                                      bool isBankA) {
    if (!is_row(table, i)) return;
    using namespace ENGINE_FUNCTIONS;
    DieselRecord& engine = table(i);

    // Rated and current power per cylinder of one bank.
    double P0 = engine.MCRPOWER / engine.NCYLINDER;
    if (engine.ISVENGINE) P0 = P0 / 2.0;
    const double N0 = engine.MCRSPEED;
    double P = engine.POWERPERCYL;
    const double N = engine.SPEED;

    // Partial firing: a partial cylinder delivers its percentage, the normal ones take
    // over the rest; the engine as a whole is described by a normal cylinder.
    if (engine.HASPARTIALFIRING) {
        if (cylinder > 0 && cylinder_status(engine, cylinder, isBankA) == PARTIALFIRING) {
            const auto& percent = isBankA ? engine.FIRINGPERCENTA : engine.FIRINGPERCENTB;
            P = P * percent[static_cast<std::size_t>(cylinder - 1)] / 100.0;
        } else if (cylinder >= 0) {
            P = P * GET_DIESEL_POWERCYLPERCENTINCREASED(table, i);
        }
    }

    if (engine.ISTHEORETICALPRESURE) {
        const double pInlet = CALCULATE_PINLET(P0, N0, P, N, engine.PCHARGEAIR, engine.NSTROKE);
        double pComp = CALCULATE_PCOMP(P0, N0, P, N, engine.PCOMP);
        double pMax = CALCULATE_PMAX(P0, N0, P, N, engine.PMAX, pComp, engine.NSTROKE);
        if (engine.ISGENSET) {
            // Measured pressures of the load case replace the load laws, without their limits.
            pComp = GLOBAL_LOADCASEGENSET::GET_LOADCASEGENSET_PRESSURECOMP(gensetTable, engine.ID,
                                                                          engine.ILOADCASE);
            pMax = GLOBAL_LOADCASEGENSET::GET_LOADCASEGENSET_PRESSUREMAX(gensetTable, engine.ID,
                                                                        engine.ILOADCASE);
        }
        engine.PCHARGEAIRRPM = pInlet;
        engine.PCOMPRPM = pComp;
        engine.PMAXRPM = pMax;
    }

    // Mean effective pressure of the load case; infinite at standstill with power.
    engine.MEPRPM =
        P / (N / (60.0 * engine.NSTROKE * 0.5) * PI * std::pow(engine.BORE, 2) * 0.25 * engine.STROKE);

    double m1 = CALCULATE_DIESEL_MEPMCR(table, i, true);
    const double m2 = CALCULATE_DIESEL_MEPMCR(table, i, false);
    const double mipMax = CALCULATE_MIP_MAX(m2, engine.ME, engine.MIPLIMIT);
    if (engine.HASPARTIALFIRING) m1 = m1 * GET_DIESEL_POWERCYLPERCENTINCREASED(table, i);

    engine.MIPRPM = CALCULATE_MIP(engine.MEPRPM, m1, engine.LOADPERCENTAGE, engine.ME, mipMax);
}

double CALCULATE_DIESEL_DAMPING_CYLINDER(const DieselTable& table, int i, double order) {
    if (!is_row(table, i)) return 0.0;
    if (i < 1 || !table(i).ISFORMULADAMPING) return 0.0;
    const DieselRecord& engine = table(i);
    return formula_damping(engine.CYLABSDAMPING, engine.EXPCYLABSDAMPING, order, engine.SPEED);
}

double CALCULATE_DIESEL_DAMPING_CRANKTHROW(const DieselTable& table, int i, double order) {
    if (!is_row(table, i)) return 0.0;
    if (i < 1 || !table(i).ISFORMULADAMPING) return 0.0;
    const DieselRecord& engine = table(i);
    return formula_damping(engine.CRANKRELDAMPING, engine.EXPCRANKRELDAMPING, order, engine.SPEED);
}

int GET_DIESEL_NCYLFOURIERCOEFFICIENTS(const DieselTable& table) {
    if (GET_DIESEL_NUMBER(table) == 0) return 0;
    int n = 20;
    for (int i = 1; i <= GET_DIESEL_NUMBER(table); ++i)
        n = std::max(n, table(i).NSTROKE == 2 ? 20 : 24);
    return n;
}

void GET_DIESEL_HARMONICORDER(const DieselTable& table, std::vector<double>& orders) {
    const int n = GET_DIESEL_NCYLFOURIERCOEFFICIENTS(table);
    orders.clear();
    if (n == 20) {
        for (int k = 1; k <= 20; ++k) orders.push_back(static_cast<double>(k));
    } else {
        for (int k = 1; k <= MAXHARMONICORDER; ++k) orders.push_back(k * 0.5);
    }
}

}  // namespace qm::GLOBAL_DIESEL
