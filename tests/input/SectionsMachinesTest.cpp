#include <gtest/gtest.h>

#include <cmath>

#include "../support/TestModels.h"
#include "base/Constants.h"
#include "base/GlobalParameter.h"
#include "base/Log.h"
#include "input/ComponentSpeedRatios.h"
#include "input/ImportInputFile.h"

namespace qm {
namespace {

using Model = test::ReadModel;

using test::joined;

std::string message(const std::string& items, int line) { return test::read_error(items, line); }

// Two lines of inertias stand before every section below, so section line k is file line k + 2.
const std::string MASSES = "INERTIA 11 2,5 10 0 0\nINERTIA 12 1 10 0 0\n";

// The shared engine on inertias 11 and 12, and propeller 3 on inertia 12.
std::vector<std::string> diesel() { return test::diesel_lines(1); }
std::vector<std::string> propeller() { return test::propeller_lines(3, 12); }

std::vector<std::string> pump() {
    return {"RECIPROCATINGPUMP 4 Pump", "300 500 2 90 1 1", "11 12", "0 180", "90 270", "150 200 0,2 40 1",
            "2",                        "1 2 0 0",          "10 5 0 0"};
}

// Expects the file to fail at file line `line` with the message of `items`, and nothing else.
void expect_failure(const std::string& text, const std::string& items, int line) {
    Model m(text);
    EXPECT_FALSE(m.ok);
    ASSERT_EQ(m.log.size(), 1U);
    EXPECT_EQ(m.log[0], message(items, line));
}

// Each line of a section, made unreadable in turn, gives its own message with its line number.
void expect_messages(const std::vector<std::string>& section, const std::vector<std::string>& items) {
    for (std::size_t k = 0; k < items.size(); ++k) {
        SCOPED_TRACE("section line " + std::to_string(k + 1));
        std::vector<std::string> lines = section;
        lines[k] = k == 0 ? lines[0].substr(0, lines[0].find(' ')) + " x" : "x 1";
        expect_failure(MASSES + joined(lines), items[k], static_cast<int>(k) + 3);
    }
}

TEST(MachineSections, SmallMachinesFillTheirRecordsAndMarkTheirInertias) {
    Model m("INERTIA 1 1 10 0 0\nINERTIA 2 1 10 0 0\nINERTIA 3 1 10 0 0\nINERTIA 4 1 10 0 0\n"
            "INERTIA 5 1 10 0 0\n"
            "electricMotor 7\n1 1500,5 750 1 600 2\n1 1,5 2 3\n10 5 0 0\n"
            "GENERATOR 8\n2 800 1500 1\n1,5 2 0 0\n4 2 0 0\n"
            "CentrifugalPump 9\n3 100 1000 2 90\n1 2 0 0\n3 1 0 0\n"
            "GASTURBINE 10\n4 5000 3000\n"
            "STEAMTURBINE 11\n5 6000 3600\n"
            "GASTURBINE 12\n99 1 1\n");
    ASSERT_TRUE(m.ok);
    EXPECT_TRUE(m.log.empty());

    const ElectricMotorRecord& motor = m.tables.ELECTRICMOTOR_TABLE(1);
    EXPECT_EQ(motor.ELECTRICMOTORNODE, 1);
    EXPECT_EQ(motor.MCRPOWER, 1500500.0);  // decimal comma, kW to W
    EXPECT_EQ(motor.MCRTORQUE, 1500500.0 / (PI * 750.0 / 30.0));
    EXPECT_EQ(motor.CONSTEXCITATIONFREQ, 600.0);
    EXPECT_EQ(GLOBAL_ELECTRICMOTOR::GET_ELECTRICMOTOR_MOTORORDERNUMBER(m.tables.ELECTRICMOTOR_TABLE, 1), 2);
    EXPECT_EQ(motor.MOTORORDER, (std::array<double, 4>{1.0, 1.5, 2.0, 3.0}));
    EXPECT_EQ(motor.MOTORTORQUEPERCENT, (std::array<double, 4>{0.1, 0.05, 0.0, 0.0}));

    const GeneratorRecord& generator = m.tables.GENERATOR_TABLE(1);
    EXPECT_EQ(generator.GENERATORORDERNUMBER, 1);
    EXPECT_EQ(generator.GENERATORORDER[0], 1.5);
    EXPECT_EQ(generator.GENERATORTORQUEPERCENT[1], 0.02);

    const CentrifugalPumpRecord& pump = m.tables.CENTRIFUGALPUMP_TABLE(1);
    EXPECT_EQ(pump.CENTRIFUGALPUMPPHASEANGLE, PI * 90.0 / 180.0);
    EXPECT_EQ(pump.CENTRIFUGALPUMPTORQUEPERCENT[0], 0.03);

    EXPECT_EQ(m.tables.GASTURBINE_TABLE(1).MCRTORQUE, 5000000.0 / (PI * 3000.0 / 30.0));

    // Inertia, its component code and mass code, the owner's ID; node 99 of the second gas
    // turbine is not in the model and is passed over.
    const test::Mark marks[] = {{17, 17, 7}, {18, 18, 8}, {28, 28, 9}, {19, 19, 10}, {20, 20, 11}};
    for (int row = 1; row <= 5; ++row) EXPECT_EQ(test::mark(m.tables, row), marks[row - 1]) << row;
}

TEST(DieselSection, InLineEngineWithTheoreticalPressureAndFormulaDamping) {
    std::vector<std::string> lines = diesel();
    lines[0] = "DIESEL 1 'Main engine of the good ship'";  // more than 20 characters
    Model m(MASSES + "INERTIA 13 1 10 0 0\n" + joined(lines));
    ASSERT_TRUE(m.ok);
    const DieselRecord& e = m.tables.DIESEL_TABLE(1);
    EXPECT_EQ(e.NAME, "Main engine of the g");
    EXPECT_EQ(e.MCRTORQUE, 7000000.0 / (PI * 100.0 / 30.0));
    EXPECT_EQ(e.MIPLIMIT, 1.1);
    EXPECT_EQ(e.CYLINDERS[1], 12);
    EXPECT_EQ(e.FIRINGANGLEA[1], PI * 180.0 / 180.0);
    EXPECT_EQ(e.FIRINGPERCENTA[1], 100.0);  // stays in percent
    EXPECT_DOUBLE_EQ(e.STROKE, 2.4);
    EXPECT_EQ(e.ME, 0.95);
    EXPECT_EQ(e.PCHARGEAIR, 2.5 * 100000.0);
    EXPECT_EQ(e.EXPAEXP, 1.25);
    EXPECT_EQ(e.TE, 0.45);
    EXPECT_EQ(e.ANGLEIGNITION, -5.0);  // crank angles stay in degrees
    EXPECT_EQ(e.ANGLEINLETCLOSE, 200.0);
    EXPECT_EQ(e.CYLABSDAMPING, 0.5);
    EXPECT_EQ(e.EXPCRANKRELDAMPING, 2.5);

    for (int row : {1, 2}) EXPECT_EQ(test::mark(m.tables, row), (test::Mark{15, 2, 1}));
    EXPECT_EQ(test::mark(m.tables, 3), (test::Mark{1, 1, 13}));  // not a cylinder
}

TEST(DieselSection, BanksAndVAngleFollowIsVengine) {
    // nStroke, isVengine, Vangle; then what is stored.
    struct Case {
        int nStroke, isVengine;
        const char* vangle;
        bool vEngine, bankB;
        double storedVangle;
    };
    const Case cases[] = {
        {4, 1, "-30", true, true, 690.0}, {2, 1, "-30", true, true, 330.0},  {4, 1, "1470", true, true, 30.0},
        {4, 1, "720", true, true, 0.0},    {4, 2, "-30", true, false, 690.0}, {4, 0, "-30", false, false, -30.0},
        {2, 1, "1e300", true, true, std::fmod(1e300, 360.0)},  // far out of range, yet no endless loop
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(std::to_string(c.nStroke) + "-stroke, isVengine " + std::to_string(c.isVengine) + ", " +
                     c.vangle);
        std::vector<std::string> lines = diesel();
        lines[1] = "7000 100 " + std::to_string(c.nStroke) + " 2 0 " + std::to_string(c.isVengine) + " " +
                   c.vangle + " 0 1";
        lines[4] = "30 210";   // FiringAngleB
        lines[6] = "1 5";      // FiringStatusB, one cylinder partially firing
        lines[8] = "100 60";   // FiringPercentB
        Model m(MASSES + joined(lines));
        ASSERT_TRUE(m.ok);
        const DieselRecord& e = m.tables.DIESEL_TABLE(1);
        EXPECT_EQ(e.ISVENGINE, c.vEngine);
        EXPECT_EQ(e.VANGLE, c.storedVangle);
        EXPECT_EQ(e.FIRINGANGLEB[1], c.bankB ? PI * 210.0 / 180.0 : 0.0);
        EXPECT_EQ(e.FIRINGSTATUSB[1], c.bankB ? 5 : 0);
        EXPECT_EQ(e.FIRINGPERCENTB[1], c.bankB ? 60.0 : 0.0);
        EXPECT_EQ(e.HASPARTIALFIRING, c.bankB);  // bank B not stored: its 5 does not count
    }
}

TEST(DieselSection, HarmonicFilesAreWholeLinesFoundBesideTheModel) {
    std::vector<std::string> lines = diesel();
    lines[1] = "7000 100 4 2 0 0 0 1 1";  // isGenset 1
    lines[9] = "600 2400 0,25 1500 95 0 7 0";  // harmonic files, VeeFiringType 7, no formula damping
    lines[10] = "  normal firing.txt";
    lines[11] = "/data/mis.txt";
    lines[12] = "INERTIA 13 1 10 0 0";  // the section has ended: this is a section of its own
    Model m(MASSES + joined(lines));
    ASSERT_TRUE(m.ok);
    const DieselRecord& e = m.tables.DIESEL_TABLE(1);
    EXPECT_FALSE(e.ISTHEORETICALPRESURE);
    EXPECT_FALSE(e.ISFORMULADAMPING);
    EXPECT_EQ(e.VEEFIRINGTYPE, 2);
    EXPECT_TRUE(e.ISGENSET);
    EXPECT_EQ(e.NORMALHARMONICFILE, "normal firing.txt");  // as written, opened in the model's folder
    EXPECT_EQ(e.SIDEFILEDIR, m.dir.str());
    EXPECT_EQ(e.MISHARMONICFILE, "/data/mis.txt");
    EXPECT_EQ(e.PMAX, 0.0);
    EXPECT_EQ(m.tables.MASS_TABLE.size(), 3);
    EXPECT_EQ(m.tables.MASS_TABLE(3).ID, 13);
}

TEST(CylinderMachines, TwentyCylindersAreReadTwentyOneRefused) {
    auto per_cylinder = [](int n, const std::string& v) {
        std::string s;
        for (int j = 1; j <= n; ++j) s += (v.empty() ? std::to_string(j) : v) + " ";
        return s;
    };
    for (int n : {20, 21}) {
        SCOPED_TRACE(n);
        std::vector<std::string> e = diesel();
        e[1] = "7000 100 2 " + std::to_string(n) + " 0 0 0 0 1";
        for (int k = 2; k <= 8; ++k) e[static_cast<std::size_t>(k)] = per_cylinder(n, k == 2 ? "" : "1");
        std::vector<std::string> p = pump();
        p[1] = "300 500 " + std::to_string(n) + " 90 1 1";
        for (int k = 2; k <= 4; ++k) p[static_cast<std::size_t>(k)] = per_cylinder(n, k == 2 ? "" : "1");
        Model engine(joined(e));
        Model pumpModel(joined(p));
        if (n == 20) {
            ASSERT_TRUE(engine.ok);
            EXPECT_EQ(engine.tables.DIESEL_TABLE(1).CYLINDERS[19], 20);
            ASSERT_TRUE(pumpModel.ok);
            EXPECT_EQ(pumpModel.tables.RECIPROCATINGPUMP_TABLE(1).CYLINDERS[19], 20);
        } else {
            EXPECT_FALSE(engine.ok);
            EXPECT_EQ(engine.log, std::vector<std::string>{message(
                                      "McrPower, McrSpeed, nStroke, nCylinder, ExcitationPhase, isVengine, Vangle", 2)});
            EXPECT_FALSE(pumpModel.ok);
            EXPECT_EQ(pumpModel.log,
                      std::vector<std::string>{message(
                          "McrPower, McrSpeed, nPumpCylinder, ExcitationPhase, isOpposite, isDoubleActing", 2)});
        }
    }
}

TEST(ReciprocatingPumpSection, SimplifiedPressureOppositePump) {
    Model m(MASSES + joined(pump()));
    ASSERT_TRUE(m.ok);
    const ReciprocatingPumpRecord& p = m.tables.RECIPROCATINGPUMP_TABLE(1);
    EXPECT_EQ(p.NAME, "Pump");
    EXPECT_EQ(p.MCRTORQUE, 300000.0 / (PI * 500.0 / 30.0));
    EXPECT_EQ(p.EXCITATIONPHASE, PI * 90.0 / 180.0);
    EXPECT_TRUE(p.ISDOUBLEACTING);
    EXPECT_EQ(p.DISCHARGEANGLEB[1], PI * 270.0 / 180.0);
    EXPECT_DOUBLE_EQ(p.STROKELENGTH, 0.2);
    EXPECT_EQ(p.RECIPROCATINGPUMPORDERNUMBER, 2);
    EXPECT_EQ(p.RECIPROCATINGPUMPORDER, (std::array<double, 4>{1, 2, 0, 0}));
    EXPECT_EQ(p.RECIPROCATINGPUMPTORQUEPERCENT, (std::array<double, 4>{0.1, 0.05, 0, 0}));
    EXPECT_EQ(p.VANGLE, 180.0);
    for (int row : {1, 2}) EXPECT_EQ(test::mark(m.tables, row), (test::Mark{30, 29, 4}));
}

TEST(ReciprocatingPumpSection, HarmonicFileAndSideBOnlyWhenOpposite) {
    std::vector<std::string> lines = pump();
    lines[1] = "300 500 2 90 0 0";
    lines[5] = "150 200 0,2 40 0";
    lines[6] = "pump harmonics.txt";
    lines.resize(7);
    Model m(MASSES + joined(lines));
    ASSERT_TRUE(m.ok);
    const ReciprocatingPumpRecord& p = m.tables.RECIPROCATINGPUMP_TABLE(1);
    EXPECT_EQ(p.DISCHARGEANGLEB[1], 0.0);
    EXPECT_FALSE(p.ISSIMPLIFIEDPRESSURE);
    EXPECT_EQ(p.PUMPHARMONICFILE, "pump harmonics.txt");
    EXPECT_EQ(p.SIDEFILEDIR, m.dir.str());
    EXPECT_EQ(p.RECIPROCATINGPUMPORDERNUMBER, 0);
}

TEST(PropellerSection, FieldsUnitsAndMark) {
    Model m(MASSES + joined(propeller()));
    ASSERT_TRUE(m.ok);
    const PropellerRecord& p = m.tables.PROPELLER_TABLE(1);
    EXPECT_EQ(p.MCRTORQUE, 7000000.0 / (PI * 100.0 / 30.0));
    EXPECT_EQ(p.INERTIAWATER, 1500.0);
    EXPECT_TRUE(p.ISDUCTED);
    EXPECT_DOUBLE_EQ(p.DB, 0.3);
    EXPECT_DOUBLE_EQ(p.DI, 5.0);
    EXPECT_FALSE(p.ISFIXEDPITCH);
    EXPECT_EQ(p.PITCHPERCENT, 0.9);
    EXPECT_EQ(p.TORQUEPERCENT2, 0.01);
    EXPECT_EQ(p.EXCITATIONPHASE, PI * 90.0 / 180.0);
    EXPECT_TRUE(p.CONSIDERPHASEANGLE);
    EXPECT_FALSE(p.ISVARIABLEENTRAINEDWATER);
    EXPECT_FALSE(p.HASICEEXCITATION);
    EXPECT_EQ(test::mark(m.tables, 2), (test::Mark{16, 16, 3}));
    EXPECT_EQ(test::mark(m.tables, 1), (test::Mark{1, 1, 11}));
}

TEST(PropellerSection, DampingWordsInAnyCaseAndAnUnknownWordCarriesTheMethodBefore) {
    struct Case {
        const char* word;
        int method;
        double archer, frahm, knuckle, dynMagnifier, dynAtKnuckle;
    };
    const Case cases[] = {{"Schwaneke", 1, 0, 0, 0, 0, 0}, {"archer", 2, 30, 0, 0, 0, 0},
                          {"FRAHM", 3, 0, 40, 0, 0, 0},      {"manual", 4, 0, 0, 0, 20, 0},
                          {"Variable", 5, 0, 0, 80, 20, 20}};
    for (const Case& c : cases) {
        SCOPED_TRACE(c.word);
        std::vector<std::string> lines = propeller();
        lines[3] = std::string(c.word) + " 30 40 80 2 1 90 1";
        Model m(MASSES + joined(lines));
        ASSERT_TRUE(m.ok);
        const PropellerRecord& p = m.tables.PROPELLER_TABLE(1);
        EXPECT_EQ(p.DAMPINGMETHOD, c.method);
        EXPECT_EQ(p.ARCHERNUMBER, c.archer);
        EXPECT_EQ(p.FRAHMNUMBER, c.frahm);
        EXPECT_EQ(p.KNUCKLEPOINT, c.knuckle);
        EXPECT_EQ(p.DYNMAGNIFIER, c.dynMagnifier);
        EXPECT_EQ(p.DYNMAGNIFIERFORKNUCKLEPOINT, c.dynAtKnuckle);
    }

    std::vector<std::string> first = propeller();
    first[3] = "SCHWANECKE 30 40 80 2 1 90 1";  // not a method word
    std::vector<std::string> second = propeller();
    second[3] = "FRAHM 30 40 80 2 1 90 1";
    std::vector<std::string> third = propeller();
    third[3] = "NONE 30 40 80 2 1 90 1";
    Model m(MASSES + joined(first) + joined(second) + joined(third));
    ASSERT_TRUE(m.ok);
    EXPECT_EQ(m.tables.PROPELLER_TABLE(1).DAMPINGMETHOD, 0);
    EXPECT_EQ(m.tables.PROPELLER_TABLE(3).DAMPINGMETHOD, GLOBAL_PROPELLER::FRAHM);
    EXPECT_EQ(m.tables.PROPELLER_TABLE(3).FRAHMNUMBER, 0.0);
}

TEST(PropellerSection, EntrainedWaterFileIsOneWordOrQuoted) {
    std::vector<std::string> lines = propeller();
    lines[4] = "1";
    lines.push_back("water table.txt");
    std::vector<std::string> quoted = propeller();
    quoted[4] = "1";
    quoted.push_back("'water table.txt'");
    Model m(MASSES + joined(lines) + joined(quoted));
    ASSERT_TRUE(m.ok);
    EXPECT_TRUE(m.tables.PROPELLER_TABLE(1).ISVARIABLEENTRAINEDWATER);
    EXPECT_EQ(m.tables.PROPELLER_TABLE(1).VARIABLEENTRAINEDWATERFILE, "water");
    EXPECT_EQ(m.tables.PROPELLER_TABLE(2).VARIABLEENTRAINEDWATERFILE, "water table.txt");
    EXPECT_EQ(m.tables.PROPELLER_TABLE(2).SIDEFILEDIR, m.dir.str());
}

// Each line of each machine section, made unreadable in turn, gives its own message.
TEST(MachineSections, EachLineReportsItsOwnMessage) {
    std::vector<std::string> propellerWithFile = propeller();
    propellerWithFile[4] = "1";
    propellerWithFile.push_back("water.txt");
    const std::pair<std::vector<std::string>, std::vector<std::string>> sections[] = {
        {{"ELECTRICMOTOR 1", "1 100 1000 0 0 1", "1 0 0 0", "1 0 0 0"},
         {"Id", "ElectricMotorNode, McrPower, McrSpeed, ExcitationType, ConstExcitationFreq, MotorOrderNumber",
          "Electric motor order", "Electric motor torque amplitude"}},
        {{"GENERATOR 1", "1 100 1000 1", "1 0 0 0", "1 0 0 0"},
         {"Id", "GeneratorNode, McrPower, McrSpeed, GeneratorOrderNumber", "Generator torque order",
          "Generator torque amplitude"}},
        {{"CENTRIFUGALPUMP 1", "1 100 1000 1 0", "1 0 0 0", "1 0 0 0"},
         {"Id", "CentrifugalPumpNode, McrPower, McrSpeed, CentrifugalPumpOrderNumber, CentrifugalPumpPhaseAngle",
          "Centrifugal pump torque order", "Centrifugal pump torque amplitude"}},
        {{"GASTURBINE 1", "1 100 1000"}, {"Id", "GasTurbineNode, McrPower, McrSpeed"}},
        {{"STEAMTURBINE 1", "1 100 1000"}, {"Id", "SteamTurbineNode, McrPower, McrSpeed"}},
        {diesel(),
         {"Id", "McrPower, McrSpeed, nStroke, nCylinder, ExcitationPhase, isVengine, Vangle", "Cylinders",
          "FiringAngleA", "FiringAngleB", "FiringStatusA", "FiringStatusB", "FiringStatusA", "FiringStatusB",
          "Bore, Stroke, ConrodRatio, RecipMass, Me, isTheoreticalPresure, VeeFiringType, isFormulaDamping",
          "PMax, PComp, CompExp, ExpaExp, CompRatio, PChargeAir, TChargeAir",
          "Te, FormFactor, AngleIgnition, AngleEndOfComb, AngleExhaustStart, AngleInletStart, AngleInletClose",
          "CylAbsDamping, ExpCylAbsDamping, CrankRelDamping, ExpCrankRelDamping"}},
        {pump(),
         {"Id, PumpName", "McrPower, McrSpeed, nPumpCylinder, ExcitationPhase, isOpposite, isDoubleActing",
          "PumpCylinders", "DischargeAngleA", "DischargeAngleB", "Bore, Stroke, ConrodRatio, RecipMass, isSimplifiedPresure",
          "ReciprocatingPumpOrderNumber", "Reciprocating pump torque order", "Reciprocating pump torque amplitude"}},
        {propellerWithFile,
         {"Id", "PropellerNode, McrPower, McrSpeed, nBlade, InertiaAir, InertiaWater, isDucted",
          "Db, Di, PitchRatio, ExpAreaRatio, isFixedPitch, PitchPercent, DynMagnifier",
          "ArcherNumber, FrahmNumber,  KnucklePoint, TorquePercent1, TorquePercent2, ExcitationPhase, ConsiderPhaseAngle",
          "isVariablePropellerEntrainedWater"}},
    };
    for (const auto& [section, items] : sections) {
        SCOPED_TRACE(section[0]);
        expect_messages(section, items);
    }

    // Lines one value short: an order line of three values, a diesel without a name, a
    // cylinder line, the propeller's missing file name line (the end of the file reads blank).
    expect_failure(MASSES + "GENERATOR 1\n1 100 1000 1\n1 2 3\n1 0 0 0\n", "Generator torque order", 5);
    std::vector<std::string> lines = diesel();
    lines[0] = "DIESEL 1";
    expect_failure(MASSES + joined(lines), "Id", 3);
    lines = diesel();
    lines[7] = "100";
    expect_failure(MASSES + joined(lines), "FiringStatusA", 10);
    propellerWithFile.pop_back();
    expect_failure(MASSES + joined(propellerWithFile), "isVariablePropellerEntrainedWater", 8);
}

TEST(PropellerIceSection, GoesToThePropellerReadLastWhateverItsId) {
    Model m(MASSES + joined(propeller()) + "PROPELLERICE 99\n1\n  ice data/ice 1.txt  \n" + "INERTIA 13 1 1 0 0\n" +
            joined(propeller()) + "INERTIA 14 1 1 0 0\nPropellerIce 3\n0\n/ice.txt\n");
    ASSERT_TRUE(m.ok);
    const PropellerRecord& first = m.tables.PROPELLER_TABLE(1);
    EXPECT_TRUE(first.HASICEEXCITATION);
    EXPECT_TRUE(first.ISTMAXCORRECTEDWITHACTUALSPEED);
    EXPECT_EQ(first.NSPEEDRATIO, 10);
    EXPECT_EQ(first.EXCITATIONFILE, "ice data/ice 1.txt");
    EXPECT_EQ(first.SIDEFILEDIR, m.dir.str());
    const PropellerRecord& second = m.tables.PROPELLER_TABLE(2);
    EXPECT_TRUE(second.HASICEEXCITATION);
    EXPECT_EQ(second.NSPEEDRATIO, 2);
    EXPECT_EQ(second.EXCITATIONFILE, "/ice.txt");
}

TEST(PropellerIceSection, MessagesAndNoPropellerBefore) {
    expect_failure(MASSES + joined(propeller()) + "PROPELLERICE x\n1\nice.txt\n", "PropellerIce Id", 8);
    expect_failure(MASSES + joined(propeller()) + "PROPELLERICE 3\nyes\nice.txt\n", "isTmaxCorrectedWithActualSpeed",
                   9);
    Model m(MASSES + "PROPELLERICE 3\n1\nice.txt\n" + joined(propeller()));
    EXPECT_FALSE(m.ok);
    ASSERT_EQ(m.log.size(), 1U);
    EXPECT_EQ(m.log[0], LOG::with_line_number(
                            "Error occurs when reading \"PropellerIce\" without a PROPELLER before it in input file line ", 3));
}

TEST(ComponentSpeedRatios, MachinesTakeTheRatioOfTheirInertia) {
    // Inertia 11 runs at 2.5, 12 at 1; 13 at 4.
    std::vector<std::string> engine = diesel();
    engine[2] = "11 12";
    std::vector<std::string> pumpLines = pump();
    pumpLines[2] = "13 11";
    std::vector<std::string> propellerLines = propeller();
    propellerLines[1] = "11 7000 100 4 5000 1500 1";
    Model m(MASSES + "INERTIA 13 4 10 0 0\n" + joined(engine) + joined(pumpLines) + joined(propellerLines) +
            "GENERATOR 8\n13 800 1500 1\n1 0 0 0\n1 0 0 0\n" + "GASTURBINE 9\n77 1 1\n");
    ASSERT_TRUE(m.ok);
    EXPECT_EQ(m.tables.DIESEL_TABLE(1).RPMRATIO, 2.5);               // first cylinder
    EXPECT_EQ(m.tables.RECIPROCATINGPUMP_TABLE(1).RPMRATIO, 4.0);    // first cylinder, not the second
    EXPECT_EQ(m.tables.PROPELLER_TABLE(1).RPMRATIO, 2.5);
    EXPECT_EQ(m.tables.GENERATOR_TABLE(1).RPMRATIO, 4.0);
    EXPECT_EQ(m.tables.GASTURBINE_TABLE(1).RPMRATIO, 1.0);           // node 77 missing: default kept
}

TEST(ComponentSpeedRatios, CouplingsTakeTheirShaftAndDampersTheirOuterInertia) {
    // Inertias 10, 20, 30 at 2, 3, 4; shafts 5 and 6 at 7 and 8.
    test::Model m;
    m.mass(10, 1.0, 2.0).mass(20, 1.0, 3.0).mass(30, 1.0, 4.0).shaft(10, 20, 1.0, 7.0).shaft(20, 30, 1.0, 8.0);
    ModelTables& t = m.t;
    t.SHAFT_TABLE(1).ID = 5;
    t.SHAFT_TABLE(2).ID = 6;
    test::append(t.LINEARCOUPLING_TABLE, {.SHAFTNODE = 6});
    test::append(t.PROGRESSIVECOUPLING_TABLE, {.SHAFTNODE = 5});
    test::append(t.GEISLINGERCOUPLING_TABLE, {.SHAFTNODE = 10});  // an inertia ID, no shaft ID
    test::append(t.RUBBERDAMPER_TABLE, {.TURNINGMASSNODE = 20, .DRIVEPLATENODE = 30});
    test::append(t.STEELSPRINGDAMPER_TABLE, {.OUTERMEMBERNODE = 30, .INNERMEMBERNODE = 10});
    test::append(t.VISCOUSDAMPER_TABLE).CASINGNODE = 10;
    t.VISCOUSDAMPER_TABLE(1).RINGNODE = 20;
    t.GENERATOR_TABLE.allocate(1);  // node 0 is no inertia
    IMPORTINPUTFILE::set_component_speed_ratios(t);
    EXPECT_EQ(t.LINEARCOUPLING_TABLE(1).RPMRATIO, 8.0);
    EXPECT_EQ(t.PROGRESSIVECOUPLING_TABLE(1).RPMRATIO, 7.0);
    EXPECT_EQ(t.GEISLINGERCOUPLING_TABLE(1).RPMRATIO, 1.0);
    EXPECT_EQ(t.RUBBERDAMPER_TABLE(1).RPMRATIO, 3.0);
    EXPECT_EQ(t.STEELSPRINGDAMPER_TABLE(1).RPMRATIO, 4.0);
    EXPECT_EQ(t.VISCOUSDAMPER_TABLE(1).RPMRATIO, 2.0);
    EXPECT_EQ(t.GENERATOR_TABLE(1).RPMRATIO, 1.0);

    ModelTables noModel;  // without inertias and shafts every component keeps its default
    noModel.PROPELLER_TABLE.allocate(1);
    noModel.LINEARCOUPLING_TABLE.allocate(1);
    IMPORTINPUTFILE::set_component_speed_ratios(noModel);
    EXPECT_EQ(noModel.PROPELLER_TABLE(1).RPMRATIO, 1.0);
    EXPECT_EQ(noModel.LINEARCOUPLING_TABLE(1).RPMRATIO, 1.0);
}

}  // namespace
}  // namespace qm
