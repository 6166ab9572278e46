#include "PressureCommand.h"

#include <cmath>
#include <cstdio>
#include <memory>
#include <optional>
#include <vector>

#include "excitation/TheoreticalCylinderPressure.h"
#include "excitation/TheoreticalPressure.h"

namespace qm::cli {

namespace {

constexpr double BAR = 1.0e5;        // Pa
constexpr double KILOWATT = 1.0e3;   // W
constexpr double MILLIMETRE = 1.0e-3;  // m
constexpr double PERCENT = 0.01;

// What the user types, in the units engineers quote them in.
struct PressureOptions {
    int strokes = 4;
    bool misfiring = false;
    double bore_mm = 0.0;
    double stroke_mm = 0.0;
    double conrod_ratio = 0.0;
    double compression_ratio = 0.0;
    double speed_rpm = 0.0;
    double power_kw = 0.0;
    std::optional<double> rated_power_kw;
    std::optional<double> rated_speed_rpm;
    double pmax_bar = 0.0;
    double pcomp_bar = 0.0;
    double charge_air_bar = 0.0;
    double charge_air_celsius = 0.0;
    double thermal_efficiency_percent = 0.0;
    double mechanical_efficiency_percent = 100.0;
    double form_factor = 1.0;
    double ignition_deg = 0.0;
    double end_of_combustion_deg = 0.0;
    double exhaust_opens_deg = 0.0;
    std::optional<double> inlet_opens_deg;
    std::optional<double> inlet_closes_deg;
};

void check_two_stroke_timing(const PressureOptions& o) {
    if (!o.inlet_opens_deg || !o.inlet_closes_deg) {
        throw CLI::ValidationError("--inlet-opens and --inlet-closes",
                                   "a two-stroke engine needs both scavenge port angles");
    }
    const int exhaust = static_cast<int>(o.exhaust_opens_deg);
    const int opens = static_cast<int>(*o.inlet_opens_deg);
    const int closes = static_cast<int>(*o.inlet_closes_deg);
    if (!(exhaust < opens && opens < closes && opens >= 0 && closes <= 359)) {
        throw CLI::ValidationError(
            "valve timing",
            "a two-stroke engine needs exhaust opening < inlet opening < inlet closing, "
            "with the inlet angles within 0..359 degrees (whole degrees count)");
    }
}

void run(const PressureOptions& o) {
    if (!(o.compression_ratio > 1.0)) {
        throw CLI::ValidationError("--compression-ratio", "the compression ratio must be above 1");
    }
    if (o.strokes == 2) check_two_stroke_timing(o);

    CylinderPressureData d;
    d.MISFIRING = o.misfiring;
    d.NSTROKE = o.strokes;
    d.BORE = o.bore_mm * MILLIMETRE;
    d.STROKE = o.stroke_mm * MILLIMETRE;
    d.CONRODRATIO = o.conrod_ratio;
    d.COMPRATIO = o.compression_ratio;
    d.PCHARGEAIR = o.charge_air_bar * BAR;
    d.TCHARGEAIR = o.charge_air_celsius;
    d.SPEED = o.speed_rpm;
    d.POWER = o.power_kw * KILOWATT;
    d.P0 = o.rated_power_kw.value_or(o.power_kw) * KILOWATT;
    d.N0 = o.rated_speed_rpm.value_or(o.speed_rpm);
    d.PMAX = o.pmax_bar * BAR;
    d.PCOMP = o.pcomp_bar * BAR;
    d.TE = o.thermal_efficiency_percent * PERCENT;
    d.ME = o.mechanical_efficiency_percent * PERCENT;
    d.FORMFACTOR = o.form_factor;
    d.ANGLEIGNITION = o.ignition_deg;
    d.ANGLEENDOFCOMB = o.end_of_combustion_deg;
    d.ANGLEEXHAUSTSTART = o.exhaust_opens_deg;
    d.ANGLEINLETSTART = o.inlet_opens_deg.value_or(0.0);
    d.ANGLEINLETCLOSE = o.inlet_closes_deg.value_or(0.0);

    std::vector<double> curve(THEORETICALPRESSURE::CYLPRESSURES_SIZE, 0.0);
    double mip = 0.0;
    const bool converged = theoretical_cylinder_pressure(d, curve.data(), mip);

    const int points = o.strokes == 2 ? 360 : 720;
    std::printf("crank_angle_deg,pressure_bar\n");
    for (int j = 1; j <= points; ++j) std::printf("%d,%.6f\n", j - 181, curve[j - 1] / BAR);
    std::printf("# mean indicated pressure: %.6f bar\n", mip / BAR);
    std::printf("# converged: %s\n", converged ? "yes" : "no");
    if (!converged && d.POWER == 0.0 && !d.MISFIRING) {
        std::printf("# a firing cylinder without power has no pressure curve\n");
    }
}

}  // namespace

void add_pressure_command(CLI::App& app) {
    auto o = std::make_shared<PressureOptions>();
    CLI::App* sub = app.add_subcommand(
        "pressure",
        "Theoretical cylinder pressure over one working cycle of one cylinder, as CSV: crank "
        "angle in degrees from firing top dead centre (-180 = bottom dead centre before "
        "firing) and absolute pressure in bar; then the mean indicated pressure and whether "
        "the iteration on indicated work and maximum pressure converged.");

    sub->add_option("--strokes", o->strokes, "Working cycle: 2 (two-stroke) or 4 (four-stroke)")
        ->check(CLI::IsMember({2, 4}))
        ->capture_default_str();
    sub->add_flag("--misfiring", o->misfiring,
                  "Cylinder without combustion: compression and expansion only");
    sub->add_option("--bore", o->bore_mm, "Cylinder bore, mm")->required()->check(CLI::PositiveNumber);
    sub->add_option("--stroke", o->stroke_mm, "Piston stroke, mm")->required()->check(CLI::PositiveNumber);
    sub->add_option("--conrod-ratio", o->conrod_ratio,
                    "Connecting rod ratio: crank radius over rod length, above 0 and below 1, e.g. 0.25")
        ->required()
        ->check(CLI::Range(0.0, 1.0).description("") & CLI::PositiveNumber);
    sub->add_option("--compression-ratio", o->compression_ratio, "Geometric compression ratio, above 1, e.g. 15")
        ->required();
    sub->add_option("--speed", o->speed_rpm, "Engine speed of the operating point, rpm")
        ->required()
        ->check(CLI::PositiveNumber);
    sub->add_option("--power", o->power_kw, "Power of this cylinder at the operating point, kW")
        ->required()
        ->check(CLI::NonNegativeNumber);
    sub->add_option("--rated-power", o->rated_power_kw,
                    "Power per cylinder at the reference point where the pressures below are "
                    "given (normally MCR), kW; default: the operating point")
        ->check(CLI::PositiveNumber);
    sub->add_option("--rated-speed", o->rated_speed_rpm,
                    "Speed at that reference point, rpm; default: the operating point. When it "
                    "differs from --speed the pressures follow the load to the operating point")
        ->check(CLI::PositiveNumber);
    sub->add_option("--pmax", o->pmax_bar, "Maximum cylinder pressure at the reference point, bar gauge")
        ->required()
        ->check(CLI::PositiveNumber);
    sub->add_option("--pcomp", o->pcomp_bar,
                    "Compression pressure at the reference point, bar gauge")
        ->required()
        ->check(CLI::NonNegativeNumber);
    sub->add_option("--charge-air-pressure", o->charge_air_bar,
                    "Charge-air pressure at the reference point, bar absolute")
        ->required()
        ->check(CLI::PositiveNumber);
    sub->add_option("--charge-air-temperature", o->charge_air_celsius, "Charge-air temperature, deg C")
        ->required();
    sub->add_option("--thermal-efficiency", o->thermal_efficiency_percent,
                    "Thermal efficiency, percent: indicated work over the heat released")
        ->required()
        ->check(CLI::Range(0.0, 100.0).description("") & CLI::PositiveNumber);
    sub->add_option("--mechanical-efficiency", o->mechanical_efficiency_percent,
                    "Mechanical efficiency, percent: effective over indicated power")
        ->check(CLI::Range(0.0, 100.0).description("") & CLI::PositiveNumber)
        ->capture_default_str();
    sub->add_option("--form-factor", o->form_factor,
                    "Starting value of the Vibe form factor of the heat release")
        ->check(CLI::PositiveNumber)
        ->capture_default_str();
    sub->add_option("--ignition", o->ignition_deg,
                    "Start of combustion, degrees crank angle from firing top dead centre "
                    "(negative before it); whole degrees count")
        ->required();
    sub->add_option("--end-of-combustion", o->end_of_combustion_deg,
                    "End of combustion, degrees after firing top dead centre")
        ->required();
    sub->add_option("--exhaust-opens", o->exhaust_opens_deg,
                    "Exhaust opening, degrees after firing top dead centre")
        ->required();
    sub->add_option("--inlet-opens", o->inlet_opens_deg,
                    "Two-stroke only: scavenge ports open, degrees after firing top dead centre");
    sub->add_option("--inlet-closes", o->inlet_closes_deg,
                    "Two-stroke only: scavenge ports close, degrees after firing top dead "
                    "centre (e.g. 220, i.e. 140 before the next one)");

    sub->callback([o] { run(*o); });
}

}  // namespace qm::cli
