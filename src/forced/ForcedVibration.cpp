#include "forced/ForcedVibration.h"

#include <iostream>
#include <string>
#include <utility>

#include "forced/LoadCaseReport.h"
#include "forced/LoadCaseWalk.h"
#include "forced/LoadCaseSetting.h"
#include "forced/PropellerIce.h"
#include "forced/ShaftPowerLoss.h"
#include "forced/ShaftResults.h"
#include "forced/SourceDriver.h"
#include "forced/SourceKinds.h"

namespace qm::FORCEDVIBRATION {

namespace {

std::size_t sz(long long n) { return n > 0 ? static_cast<std::size_t>(n) : 0U; }

// Shaft torque, stress and (with dampers or couplings) damping torque of unit u, from the
// unit's deflection and velocity blocks and the orders its driver left in EXFO.
void derive_shaft_results(const ModelTables& tables, const SweepPlan& plan, KindResults& r, int u,
                          const std::vector<double>& EXFO) {
    const int NMASS = plan.dims.NMASS, NSHAFT = plan.dims.NSHAFT, NORDER = r.NORDER;
    const std::size_t m = r.block(u, NMASS), s = r.block(u, NSHAFT);
    SINGLELOADCASESHAFTTORQUE(tables, NMASS, NSHAFT, NORDER, EXFO.data(), r.XR.data() + m, r.XI.data() + m,
                              r.SHAFTTORQUEAMP.data() + s, r.SHAFTTORQUEANGLE.data() + s,
                              r.SHAFTTORQUERE.data() + s, r.SHAFTTORQUEIM.data() + s);
    SINGLELOADCASESHAFTSTRESS(tables.SHAFT_TABLE, NSHAFT, NORDER, r.SHAFTTORQUERE.data() + s,
                              r.SHAFTTORQUEIM.data() + s, r.SHAFTSTRESSAMP.data() + s,
                              r.SHAFTSTRESSANGLE.data() + s, r.SHAFTSTRESSRE.data() + s, r.SHAFTSTRESSIM.data() + s);
    if (plan.flags.HASDAMPERORCOUPLING)
        SINGLELOADCASESHAFTDAMPINGTORQUE(tables, NMASS, NSHAFT, NORDER, EXFO.data(), r.VR.data() + m,
                                         r.VI.data() + m, r.DAMPINGTORQUEAMP.data() + s,
                                         r.DAMPINGTORQUEANGLE.data() + s, r.DAMPINGTORQUERE.data() + s,
                                         r.DAMPINGTORQUEIM.data() + s);
}

// Sizes the arrays of the synthesis, all 0.0. The curves are sized by the synthesis itself.
void allocate_synthesis(const SweepPlan& plan, int lc, LoadCaseResults& res) {
    const std::size_t nm = sz(plan.dims.NMASS), ns = sz(plan.dims.NSHAFT);
    for (auto* a : {&res.SYNDEFLECTION, &res.SYNVELOCITY, &res.SYNACCELERATION, &res.SYNPROPICEDEFLECTION,
                    &res.SYNPROPICEVELOCITY, &res.SYNPROPICEACCELE})
        a->assign(nm, 0.0);
    for (auto* a : {&res.SYNTORQUE, &res.SYNSTRESS, &res.SYNDAMPINGTORQUE, &res.SHAFTPOWERLOSS,
                    &res.RESULTANTTORQUE, &res.NOMTORQUE, &res.NOMSTRESS, &res.SYNPROPICETORQUE,
                    &res.SYNPROPICESTRESS, &res.SYNPROPICEDAMPINGTORQUE})
        a->assign(ns, 0.0);
    if (lc == 1 && plan.flags.ISPROPELLERICE) res.PROPELLERSHAFTMARKS.assign(ns, 0.0);
}

// The six syntheses of a load case over units, orders and kinds, each with its curves:
// deflection, velocity, acceleration, torque, stress and, with dampers or couplings,
// damping torque. The torque and damping torque curves are always kept for the resultant.
void synthesize(const SweepPlan& plan, LoadCaseResults& res, SynthesisScratch& scratch) {
    using Field = std::vector<double> KindResults::*;
    const auto run = [&](int N, Field re, Field im, std::vector<double>& value, KindCurves& curves, bool keep) {
        SINGLELOADCASESYNTHESIS(N, synthesis_sources(res.kinds, re, im), plan.ISPHASEMODE, value, curves, keep,
                                plan.flags.HASDIESEL, plan.flags.OUTPUTANGLEBASEDRESULTS, plan.path, &scratch);
    };
    const int NMASS = plan.dims.NMASS, NSHAFT = plan.dims.NSHAFT;
    run(NMASS, &KindResults::XR, &KindResults::XI, res.SYNDEFLECTION, res.ANGULARDEFANGLEBASED, false);
    run(NMASS, &KindResults::VR, &KindResults::VI, res.SYNVELOCITY, res.ANGLUARVELANGLEBASED, false);
    run(NMASS, &KindResults::AR, &KindResults::AI, res.SYNACCELERATION, res.ANGULARACCEANGLEBASED, false);
    run(NSHAFT, &KindResults::SHAFTTORQUERE, &KindResults::SHAFTTORQUEIM, res.SYNTORQUE, res.TORQUEANGLEBASED, true);
    run(NSHAFT, &KindResults::SHAFTSTRESSRE, &KindResults::SHAFTSTRESSIM, res.SYNSTRESS, res.STRESSANGLEBASED, false);
    if (plan.flags.HASDAMPERORCOUPLING)
        run(NSHAFT, &KindResults::DAMPINGTORQUERE, &KindResults::DAMPINGTORQUEIM, res.SYNDAMPINGTORQUE,
            res.DAMPINGTORQUEANGLEBASED, true);
    else
        for (auto& c : res.DAMPINGTORQUEANGLEBASED) c.clear();
}

// Writes the n values of one family-1 field array into records c, c+4, ... of a file,
// as one ascending run: the records of the four fields interleave.
void write_fields(DirectAccessFile& file, std::int32_t first, const std::vector<double>& f1,
                  const std::vector<double>& f2, const std::vector<double>& f3, const std::vector<double>& f4,
                  std::vector<double>& buffer) {
    const std::size_t n = f1.size();
    buffer.resize(4 * n);
    for (std::size_t i = 0; i < n; ++i) {
        buffer[4 * i] = f1[i];
        buffer[4 * i + 1] = f2[i];
        buffer[4 * i + 2] = f3[i];
        buffer[4 * i + 3] = f4[i];
    }
    if (n > 0) file.write(first, buffer.data(), buffer.size());
}

void log_and_print(RunContext& ctx, const std::string& line) {
    ctx.log_append(line);
    std::cerr << line << '\n';
}

}  // namespace

SweepPlan make_sweep_plan(const ModelTables& t, bool OUTPUTANGLEBASEDRESULTS) {
    SweepPlan plan;
    plan.dims.NMASS = GLOBAL_MASS::GET_MASS_NUMBER(t.MASS_TABLE);
    plan.dims.NSHAFT = GLOBAL_SHAFT::GET_SHAFT_NUMBER(t.SHAFT_TABLE);
    plan.dims.NLOADCASE = row_count(t.LOADCASE_SPEED);
    plan.flags.ISPROPELLERICE =
        t.PROPELLER_TABLE.allocated() && GLOBAL_PROPELLER::GET_PROPELLERICEHARMONICORDERNUMBER(t.PROPELLER_TABLE) > 0;
    for (int k = 0; k < NKIND; ++k) {
        const auto kind = static_cast<SourceKind>(k);
        plan.dims.NUNIT[k] = unit_count(kind, t);
        plan.dims.NORDER[k] = order_count(kind, t, plan.flags.ISPROPELLERICE);
    }
    plan.present = {t.DIESEL_TABLE.allocated(),          t.PROPELLER_TABLE.allocated(),
                    t.GENERATOR_TABLE.allocated(),       t.CENTRIFUGALPUMP_TABLE.allocated(),
                    t.RECIPROCATINGPUMP_TABLE.allocated(), t.ELECTRICMOTOR_TABLE.allocated()};
    plan.flags.HASDIESEL = plan.dims.NUNIT[DIESEL] > 0;
    plan.flags.HASDAMPERORCOUPLING =
        row_count(t.VISCOUSDAMPER_TABLE) + row_count(t.STEELSPRINGDAMPER_TABLE) + row_count(t.RUBBERDAMPER_TABLE) >
            0 ||
        row_count(t.GEISLINGERCOUPLING_TABLE) + row_count(t.LINEARCOUPLING_TABLE) +
                row_count(t.PROGRESSIVECOUPLING_TABLE) >
            0;
    plan.flags.OUTPUTANGLEBASEDRESULTS = OUTPUTANGLEBASEDRESULTS;
    plan.ISPHASEMODE = GLOBAL_PROPELLER::GET_PROPELLER_ISMODELCONSIDERPHASEANGLE(t.PROPELLER_TABLE);
    return plan;
}

SweepFailure compute_load_case(ModelTables& tables, const SweepPlan& plan, const SweepState& state, int lc,
                               LoadCaseResults& res, LoadCaseScratch* scratch) {
    LoadCaseScratch own;
    LoadCaseScratch& work = scratch ? *scratch : own;
    work.diesel.clear();
    MASSSTIFFNESSANDDAMPINGMATRIX::LOADCASESETTING(tables, lc, plan.path == SolvePath::FAST ? &work.diesel : nullptr);
    return compute_set_load_case(tables, plan, state, lc, res, &work);
}

void prepare_unit_tables_of_load_case(ModelTables& tables, const SweepPlan& plan, int lc) {
    for (int k = 0; k < NKIND; ++k) {
        if (!plan.present[k]) continue;
        const auto kind = static_cast<SourceKind>(k);
        for (int u = 1; u <= plan.dims.NUNIT[k]; ++u)
            if (runs_driver(kind, tables, u))
                prepare_source_unit_tables(kind, tables, u, plan.flags.ISPROPELLERICE, plan.dims.NORDER[k], lc);
    }
}

SweepFailure compute_set_load_case(ModelTables& tables, const SweepPlan& plan, const SweepState& state, int lc,
                                   LoadCaseResults& res, LoadCaseScratch* scratch) {
    const bool fast = plan.path == SolvePath::FAST;
    LoadCaseScratch own;
    LoadCaseScratch& work = scratch ? *scratch : own;
    res.messages.clear();

    // Each unit of each kind by itself.
    for (int k = 0; k < NKIND; ++k) {
        const auto kind = static_cast<SourceKind>(k);
        KindResults& r = res.kinds[k];
        if (!plan.present[k]) {
            r.allocate(0, 0, plan.dims.NMASS, plan.dims.NSHAFT);
            continue;
        }
        r.allocate(plan.dims.NUNIT[k], plan.dims.NORDER[k], plan.dims.NMASS, plan.dims.NSHAFT);
        res.EXFO.assign(sz(plan.dims.NORDER[k]), 0.0);
        for (int u = 1; u <= r.NUNIT; ++u) {
            if (runs_driver(kind, tables, u)) {
                const SolverFailure f =
                    run_source_driver(kind, tables, u, plan.flags.ISPROPELLERICE, lc, r, res.EXFO, &res.messages,
                                      plan.path, &work.driver);
                if (f.routine != 0) return {f.routine, f.INFO};
            } else if (kind != ELECTRICMOTOR) {
                // A generator or centrifugal pump without orders keeps zero blocks. An electric
                // motor without orders still derives its shaft results, from zero deflection.
                continue;
            }
            derive_shaft_results(tables, plan, r, u, res.EXFO);
        }
    }

    allocate_synthesis(plan, lc, res);
    SINGLELOADCASESHAFTPOWERLOSS(tables, res.kinds, res.SHAFTPOWERLOSS);
    synthesize(plan, res, work.synthesis);
    if (plan.flags.HASDAMPERORCOUPLING) {
        // The fast path skips the zero curves of kinds without units or orders.
        std::array<bool, NKIND> withUnits{};
        for (int k = 0; k < NKIND; ++k) withUnits[k] = res.kinds[k].NUNIT > 0 && res.kinds[k].NORDER > 0;
        CALCULATERESULTANTTORQUE(plan.dims.NSHAFT, plan.ISPHASEMODE, res.RESULTANTTORQUE, res.TORQUEANGLEBASED,
                                 res.DAMPINGTORQUEANGLEBASED, fast ? &withUnits : nullptr);
    }

    SINGLELOADCASENOMINALTORQUE(tables, state.LOADCASE_SHAFTPOWER, lc, res.NOMTORQUE);
    if (plan.flags.ISPROPELLERICE)
        add_mean_ice_torque(tables.SHAFT_TABLE, tables.MASS_TABLE, tables.PROPELLER_TABLE, state.SHAFTINERTIARATIO, lc,
                            res.NOMTORQUE, res.PROPELLERSHAFTMARKS);
    SINGLELOADCASENOMINALSTRESS(tables.SHAFT_TABLE, res.NOMTORQUE, res.NOMSTRESS);

    if (plan.flags.ISPROPELLERICE) {
        PropellerIceResults& ice = work.ice;
        propeller_ice_synthesis(res.kinds[PROPELLER], plan.flags.HASDAMPERORCOUPLING, ice, plan.path,
                                &work.iceSynthesis);
        // Swapped, not moved: the buffers go round between the results and the scratch.
        res.SYNPROPICEDEFLECTION.swap(ice.SYNPROPICEDEFLECTION);
        res.SYNPROPICEVELOCITY.swap(ice.SYNPROPICEVELOCITY);
        res.SYNPROPICEACCELE.swap(ice.SYNPROPICEACCELE);
        res.SYNPROPICETORQUE.swap(ice.SYNPROPICETORQUE);
        res.SYNPROPICESTRESS.swap(ice.SYNPROPICESTRESS);
        res.SYNPROPICEDAMPINGTORQUE.swap(ice.SYNPROPICEDAMPINGTORQUE);
    }
    return {};
}

void ResultFileSet::open(RunContext& ctx, const ResultFlags& flags) {
    for (const ResultFile f : result_files_opened(flags)) files[f].open(ctx.result_path(result_file_name(f)));
}

void ResultFileSet::close() {
    for (auto& f : files) f.close();
}

void write_load_case(ResultFileSet& out, const SweepPlan& plan, int lc, const LoadCaseResults& res) {
    const int NMASS = plan.dims.NMASS, NSHAFT = plan.dims.NSHAFT;
    std::vector<double> buffer;

    // Family 1: each kind whose table exists, all units and orders.
    for (int k = 0; k < NKIND; ++k) {
        if (!plan.present[k]) continue;
        const auto kind = static_cast<SourceKind>(k);
        const KindResults& r = res.kinds[k];
        auto file = [&](Quantity q) -> DirectAccessFile& { return out.files[per_order_file(kind, q)]; };
        const std::int32_t firstMass = per_order_record(lc, 1, 1, 1, 1, r.NUNIT, NMASS, r.NORDER);
        write_fields(file(DEFLECTION), firstMass, r.XAMP, r.XANGLE, r.XR, r.XI, buffer);
        write_fields(file(VELOCITY), firstMass, r.VAMP, r.VANGLE, r.VR, r.VI, buffer);
        write_fields(file(ACCELE), firstMass, r.AAMP, r.AANGLE, r.AR, r.AI, buffer);
        const std::int32_t firstShaft = per_order_record(lc, 1, 1, 1, 1, r.NUNIT, NSHAFT, r.NORDER);
        write_fields(file(TORQUE), firstShaft, r.SHAFTTORQUEAMP, r.SHAFTTORQUEANGLE, r.SHAFTTORQUERE,
                     r.SHAFTTORQUEIM, buffer);
        write_fields(file(STRESS), firstShaft, r.SHAFTSTRESSAMP, r.SHAFTSTRESSANGLE, r.SHAFTSTRESSRE,
                     r.SHAFTSTRESSIM, buffer);
        if (plan.flags.HASDAMPERORCOUPLING)
            write_fields(file(DAMPINGTORQUE), firstShaft, r.DAMPINGTORQUEAMP, r.DAMPINGTORQUEANGLE,
                         r.DAMPINGTORQUERE, r.DAMPINGTORQUEIM, buffer);
    }

    // Families 2 to 4: one value per element, the curves, the shaft marks.
    auto values = [&](ResultFile f, const std::vector<double>& v, int NE) {
        if (!v.empty()) out.files[f].write(per_element_record(lc, 1, NE), v.data(), v.size());
    };
    auto curve = [&](ResultFile f, const std::vector<double>& v, int NE) {
        if (!v.empty()) out.files[f].write(curve_record(lc, 1, 1, NE), v.data(), v.size());
    };
    const bool curves = plan.flags.OUTPUTANGLEBASEDRESULTS && plan.flags.HASDIESEL;
    values(SYNTHESIS_DEFLECTION, res.SYNDEFLECTION, NMASS);
    values(SYNTHESIS_VELOCITY, res.SYNVELOCITY, NMASS);
    values(SYNTHESIS_ACCELERATION, res.SYNACCELERATION, NMASS);
    if (curves) {
        curve(ANGULARDEF_DIESEL, res.ANGULARDEFANGLEBASED[DIESEL], NMASS);
        curve(ANGULARDEF_PROPELLER, res.ANGULARDEFANGLEBASED[PROPELLER], NMASS);
        curve(ANGULARVEL_DIESEL, res.ANGLUARVELANGLEBASED[DIESEL], NMASS);
        curve(ANGULARVEL_PROPELLER, res.ANGLUARVELANGLEBASED[PROPELLER], NMASS);
        curve(ANGULARACCE_DIESEL, res.ANGULARACCEANGLEBASED[DIESEL], NMASS);
        curve(ANGULARACCE_PROPELLER, res.ANGULARACCEANGLEBASED[PROPELLER], NMASS);
    }
    values(SYNTHESIS_TORQUE, res.SYNTORQUE, NSHAFT);
    values(SYNTHESIS_STRESS, res.SYNSTRESS, NSHAFT);
    values(SHAFT_POWER_LOSS, res.SHAFTPOWERLOSS, NSHAFT);
    values(NOMINAL_TORQUE, res.NOMTORQUE, NSHAFT);
    values(NOMINAL_STRESS, res.NOMSTRESS, NSHAFT);
    if (lc == 1 && plan.flags.ISPROPELLERICE && !res.PROPELLERSHAFTMARKS.empty())
        out.files[PROPELLER_SHAFT_MARKS].write(once_record(1), res.PROPELLERSHAFTMARKS.data(),
                                               res.PROPELLERSHAFTMARKS.size());
    if (curves) {
        curve(TORQUEANGLE_DIESEL, res.TORQUEANGLEBASED[DIESEL], NSHAFT);
        curve(TORQUEANGLE_PROPELLER, res.TORQUEANGLEBASED[PROPELLER], NSHAFT);
        curve(STRESSANGLE_DIESEL, res.STRESSANGLEBASED[DIESEL], NSHAFT);
        curve(STRESSANGLE_PROPELLER, res.STRESSANGLEBASED[PROPELLER], NSHAFT);
    }
    if (plan.flags.HASDAMPERORCOUPLING) {
        values(SYNTHESIS_DAMPINGTORQUE, res.SYNDAMPINGTORQUE, NSHAFT);
        values(RESULTANT_TORQUE, res.RESULTANTTORQUE, NSHAFT);
    }
    if (plan.flags.ISPROPELLERICE) {
        values(SYNPROPICE_DEFLECTION, res.SYNPROPICEDEFLECTION, NMASS);
        values(SYNPROPICE_VELOCITY, res.SYNPROPICEVELOCITY, NMASS);
        values(SYNPROPICE_ACCELE, res.SYNPROPICEACCELE, NMASS);
        values(SYNPROPICE_TORQUE, res.SYNPROPICETORQUE, NSHAFT);
        values(SYNPROPICE_STRESS, res.SYNPROPICESTRESS, NSHAFT);
        if (plan.flags.HASDAMPERORCOUPLING) values(SYNPROPICE_DAMPINGTORQUE, res.SYNPROPICEDAMPINGTORQUE, NSHAFT);
    }
}

bool FORCEDVIBRATIONCALCULATION(RunContext& ctx, ModelTables& tables) {
    // One unit for each of the result files, opened or not.
    for (int f = 0; f < NRESULTFILE; ++f) ctx.GETFILEID();
    SweepPlan plan = make_sweep_plan(tables, ctx.OUTPUTANGLEBASEDRESULTS);
    plan.path = ctx.LITERALPATH ? SolvePath::LITERAL : SolvePath::FAST;
    if (!fits_32bit_records(plan.dims)) {
        log_and_print(ctx, "Error: The forced vibration results exceed 2147483647 records in one result file; "
                           "the forced vibration is not calculated");
        return false;
    }

    ResultFileSet out;
    out.open(ctx, plan.flags);
    WRITELOADCASESETTING(ctx, tables);
    SweepState state;
    CALCULATELOADCASESHAFTPOWER(tables, state.LOADCASE_SHAFTPOWER);
    if (plan.flags.ISPROPELLERICE) CALCULATESHAFTINERTIARATIO(tables, state.SHAFTINERTIARATIO);

    // Load cases go to the log and the files in their order, whatever the number of threads.
    const SweepFailure failure = walk_load_cases(
        tables, plan, state, sweep_threads(ctx.THREADS, plan.dims.NLOADCASE),
        [&](int lc, const LoadCaseResults& res, const SweepFailure& failed) {
            for (const std::string& line : res.messages) ctx.log_append(line);
            if (failed.routine == 0) write_load_case(out, plan, lc, res);
        });
    if (failure.routine != 0) {
        log_and_print(ctx, failure.routine == 1 ? "** CGETRF/ZGETRF failed" : "** CGETRS/ZGETRS failed");
        out.close();
        return false;
    }
    out.close();
    return true;
}

}  // namespace qm::FORCEDVIBRATION
