#include "forced/LoadCaseSetting.h"

#include <algorithm>

#include "base/ComponentCodes.h"
#include "excitation/DieselExcitation.h"
#include "excitation/IceExcitation.h"
#include "excitation/PumpExcitation.h"
#include "forced/ComponentRows.h"

namespace qm::MASSSTIFFNESSANDDAMPINGMATRIX {

namespace {

// POWER, SPEED and TORQUE of a component at reference speed n; false when the row is not
// in the table.
template <class Record>
bool set_operating_point(Table<Record>& table, int row, double P, double n) {
    if (row < 1 || row > table.size()) return false;
    FORCEDVIBRATION::set_operating_point(table(row), P, n * table(row).RPMRATIO);
    return true;
}

// Every cylinder takes the share of a firing cylinder, whether it fires or not.
void diesel_setting(ModelTables& t, int row, double P, double n, int lc, GLOBAL_DIESEL::DieselHarmonicsShare* share) {
    if (row < 1 || row > t.DIESEL_TABLE.size()) return;
    DieselRecord& e = t.DIESEL_TABLE(row);
    const int z = GLOBAL_DIESEL::GET_DIESEL_NFIRINGCYLINDER(t.DIESEL_TABLE, row);
    const int ncyl = std::clamp(e.NCYLINDER, 0, GLOBAL_DIESEL::MAXCYLINDER);
    e.ILOADCASE = lc;
    const double p = P / z;
    for (int c = 0; c < ncyl; ++c) {
        e.CYLPOWERA[static_cast<std::size_t>(c)] = p;
        if (e.ISVENGINE) e.CYLPOWERB[static_cast<std::size_t>(c)] = p;
    }
    e.SPEED = n * e.RPMRATIO;
    e.POWER = P;
    e.POWERPERCYL = p;
    GLOBAL_DIESEL::CALCULATE_DIESEL_TORQUE(t.DIESEL_TABLE, row);
    GLOBAL_DIESEL::CALCULATE_DIESEL_LOADPERCENTAGE(t.DIESEL_TABLE, row);
    for (int c = 1; c <= ncyl; ++c) {
        GLOBAL_DIESEL::CALCULATE_DIESEL_FOURIERCOEFFICIENT(t.DIESEL_TABLE, row, t.LOADCASEGENSET_TABLE, c, true, share);
        if (t.DIESEL_TABLE(row).ISVENGINE)
            GLOBAL_DIESEL::CALCULATE_DIESEL_FOURIERCOEFFICIENT(t.DIESEL_TABLE, row, t.LOADCASEGENSET_TABLE, c, false,
                                                               share);
    }
}

// A pump with opposite cylinders shares each cylinder's power between its two banks.
void reciprocatingpump_setting(ModelTables& t, int row, double P, double n, int lc) {
    if (row < 1 || row > t.RECIPROCATINGPUMP_TABLE.size()) return;
    ReciprocatingPumpRecord& r = t.RECIPROCATINGPUMP_TABLE(row);
    const int ncyl = std::clamp(r.NCYLINDER, 0, 20);
    r.ILOADCASE = lc;
    double p = P / r.NCYLINDER;
    if (r.ISOPPOSITE) p = p / 2.0;
    for (int c = 0; c < ncyl; ++c) {
        r.CYLPOWERA[static_cast<std::size_t>(c)] = p;
        if (r.ISOPPOSITE) r.CYLPOWERB[static_cast<std::size_t>(c)] = p;
    }
    r.SPEED = n * r.RPMRATIO;
    r.POWER = P;
    r.POWERPERCYL = p;
    auto& table = t.RECIPROCATINGPUMP_TABLE;
    GLOBAL_RECIPROCATINGPUMP::CALCULATE_RECIPROCATINGPUMP_TORQUE(table, row);
    GLOBAL_RECIPROCATINGPUMP::CALCULATE_RECIPROCATINGPUMP_LOADPERCENTAGE(table, row);
    GLOBAL_RECIPROCATINGPUMP::CALCULATE_RECIPROCATINGPUMP_SPEEDPERCENTAGE(table, row);
    for (int c = 1; c <= ncyl; ++c) {
        GLOBAL_RECIPROCATINGPUMP::CALCULATE_RECIPROCATINGPUMP_FOURIERCOEFFICIENT(table, row, c, true);
        if (table(row).ISOPPOSITE) GLOBAL_RECIPROCATINGPUMP::CALCULATE_RECIPROCATINGPUMP_FOURIERCOEFFICIENT(table, row, c, false);
    }
}

}  // namespace

void LOADCASESETTING(ModelTables& t, int lc, GLOBAL_DIESEL::DieselHarmonicsShare* share) {
    if (lc < 1 || lc > t.LOADCASE_SPEED.size()) return;
    const double n = t.LOADCASE_SPEED(lc);
    for (int i = 1; i <= t.MASS_TABLE.size(); ++i) t.MASS_TABLE(i).SPEED = n * t.MASS_TABLE(i).RPMRATIO;
    for (int i = 1; i <= t.SHAFT_TABLE.size(); ++i) t.SHAFT_TABLE(i).SPEED = n * t.SHAFT_TABLE(i).RPMRATIO;

    for (int c = 1; c <= t.LOADCASE_TABLE.size(); ++c) {
        const int type = t.LOADCASE_TABLE(c).COMPONENTTYPE;
        const int id = t.LOADCASE_TABLE(c).COMPONENTID;
        if (c > t.LOADCASE_POWER.rows() || lc > t.LOADCASE_POWER.cols()) break;
        const double P = t.LOADCASE_POWER(c, lc);
        const int row = FORCEDVIBRATION::component_row(t, type, id);
        switch (type) {
            case CODES::COMPONENT_DIESEL:
                diesel_setting(t, row, P, n, lc, share);
                break;
            case CODES::COMPONENT_PROPELLER:
                if (set_operating_point(t.PROPELLER_TABLE, row, P, n) && t.PROPELLER_TABLE(row).HASICEEXCITATION)
                    GLOBAL_PROPELLER::CALCULATE_PROPELLER_FOURIERCOEFFICIENT(t.PROPELLER_TABLE, row);
                break;
            case CODES::COMPONENT_ELECTRICMOTOR:
                if (set_operating_point(t.ELECTRICMOTOR_TABLE, row, P, n))
                    GLOBAL_ELECTRICMOTOR::CALCULATE_ELECTRICMOTOR_LOADCASESETTING(t.ELECTRICMOTOR_TABLE, row);
                break;
            case CODES::COMPONENT_GENERATOR:
                if (set_operating_point(t.GENERATOR_TABLE, row, P, n))
                    GLOBAL_GENERATOR::CALCULATE_GENERATOR_LOADCASESETTING(t.GENERATOR_TABLE, row);
                break;
            case CODES::COMPONENT_CENTRIFUGALPUMP:
                if (set_operating_point(t.CENTRIFUGALPUMP_TABLE, row, P, n))
                    GLOBAL_CENTRIFUGALPUMP::CALCULATE_CENTRIFUGALPUMP_LOADCASESETTING(t.CENTRIFUGALPUMP_TABLE, row);
                break;
            case CODES::COMPONENT_GASTURBINE: set_operating_point(t.GASTURBINE_TABLE, row, P, n); break;
            case CODES::COMPONENT_STEAMTURBINE: set_operating_point(t.STEAMTURBINE_TABLE, row, P, n); break;
            case CODES::COMPONENT_VISCOUSDAMPER: set_operating_point(t.VISCOUSDAMPER_TABLE, row, P, n); break;
            case CODES::COMPONENT_STEELSPRINGDAMPER: set_operating_point(t.STEELSPRINGDAMPER_TABLE, row, P, n); break;
            case CODES::COMPONENT_RUBBERDAMPER: set_operating_point(t.RUBBERDAMPER_TABLE, row, P, n); break;
            case CODES::COMPONENT_LINEARCOUPLING: set_operating_point(t.LINEARCOUPLING_TABLE, row, P, n); break;
            case CODES::COMPONENT_PROGRESSIVECOUPLING: set_operating_point(t.PROGRESSIVECOUPLING_TABLE, row, P, n); break;
            case CODES::COMPONENT_GEISLINGERCOUPLING: set_operating_point(t.GEISLINGERCOUPLING_TABLE, row, P, n); break;
            case CODES::COMPONENT_RECIPROCATINGPUMP:
                reciprocatingpump_setting(t, row, P, n, lc);
                break;
            default:
                break;  // no component of the load case
        }
    }
}

}  // namespace qm::MASSSTIFFNESSANDDAMPINGMATRIX
