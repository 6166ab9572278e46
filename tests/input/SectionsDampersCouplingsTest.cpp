#include <gtest/gtest.h>

#include "../support/TestModels.h"

namespace qm {
namespace {

using test::ReadModel;
using test::read_error;

// Inertias 1..4 on shafts 1 (1-2), 2 (2-3) and 3 (3-4): section line k is file line k + 7.
const std::string LINE =
    "INERTIA 1 1 10 0 0\nINERTIA 2 1 10 0 0\nINERTIA 3 1 10 0 0\nINERTIA 4 1 10 0 0\n"
    "SHAFT 1 1 2 1 1e6 0 0 0 0 0 0\nSHAFT 2 2 3 1 2e6 0 0 0 0 0 0\nSHAFT 3 3 4 1 3e6 0 0 0 0 0 0\n";

TEST(SectionsDampersCouplings, DampersFillTheirRecordsAndMarkInertiasAndTheirSpring) {
    ReadModel m(LINE +
                "VISCOUSDAMPER 5 0\n1 2 1200,5 1\ndampers/damper,1.txt\n"
                "RUBBERDAMPER 6 1\n3 2 40 \n"
                "STEELSPRINGDAMPER 7 1\n3 4 50\n");
    ASSERT_TRUE(m.ok) << (m.log.empty() ? "" : m.log[0]);
    const ViscousDamperRecord& v = m.tables.VISCOUSDAMPER_TABLE(1);
    EXPECT_EQ(v.ID, 5);
    EXPECT_FALSE(v.ISDEFAULTPOWERLOSS);
    EXPECT_EQ(v.CASINGNODE, 1);
    EXPECT_EQ(v.RINGNODE, 2);
    EXPECT_EQ(v.ABSDAMPING, 1200.5);
    EXPECT_TRUE(v.ISCUSTOMDAMPING);
    // A relative name starts at the model's folder; its comma has become a period.
    EXPECT_EQ(v.CUSTOMDAMPINGFILE, "dampers/damper.1.txt");
    EXPECT_EQ(v.SIDEFILEDIR, m.dir.str());
    EXPECT_EQ(test::mark(m.tables, 1), (test::Mark{21, 4, 5}));
    EXPECT_EQ(m.tables.SHAFT_TABLE(1).SHAFTTYPE, 12);

    const RubberDamperRecord& r = m.tables.RUBBERDAMPER_TABLE(1);
    EXPECT_EQ(r.TURNINGMASSNODE, 3);
    EXPECT_EQ(r.DRIVEPLATENODE, 2);
    EXPECT_EQ(m.tables.MASS_TABLE(3).MASSTYPE, 7);  // the steel spring damper read later stands
    EXPECT_EQ(m.tables.MASS_TABLE(2).MASSTYPE, 6);
    EXPECT_EQ(m.tables.SHAFT_TABLE(2).SHAFTTYPE, 13);  // found as (3, 2)
    EXPECT_EQ(m.tables.SHAFT_TABLE(3).SHAFTTYPE, 14);
    EXPECT_EQ(m.tables.MASS_TABLE(4).MASSTYPE, 8);
    EXPECT_EQ(m.tables.SHAFT_TABLE(3).COMPONENTTYPE, 22);
}

TEST(SectionsDampersCouplings, CouplingsMarkTheirShaftAndOnlyTheLinearOneSetsItsStiffness) {
    ReadModel m(LINE +
                "LINEARCOUPLING 1 1\n1 5000 4,5E6\n"
                "PROGRESSIVECOUPLING 2 1\n2 8000 1 2 3 4 5\n"
                "GEISLINGERCOUPLING 3 0\n3 100000 3E7 30 0,05\nGEISLINGERDAMPING\nWITHOUTPRESSURIZED\nDUALSPRING\n"
                "GEISLINGERCOUPLING 4 0\n3 100000 3E7 30 0,05\ngeneraldamping\n"
                "GEISLINGERCOUPLING 5 0\n3 1 1 1 1\nOTHERWORD\n");
    ASSERT_TRUE(m.ok) << (m.log.empty() ? "" : m.log[0]);
    EXPECT_EQ(m.tables.SHAFT_TABLE(1).SHAFTTYPE, 10);
    EXPECT_EQ(m.tables.SHAFT_TABLE(1).STIFFNESS, 4.5e6);
    EXPECT_EQ(m.tables.SHAFT_TABLE(2).SHAFTTYPE, 11);
    EXPECT_EQ(m.tables.SHAFT_TABLE(2).STIFFNESS, 2e6);
    EXPECT_EQ(m.tables.SHAFT_TABLE(3).SHAFTTYPE, 27);
    EXPECT_EQ(m.tables.SHAFT_TABLE(3).STIFFNESS, 3e6);
    EXPECT_EQ(m.tables.SHAFT_TABLE(3).COMPONENTID, 5);
    const ProgressiveCouplingRecord& p = m.tables.PROGRESSIVECOUPLING_TABLE(1);
    EXPECT_EQ(p.NOMINALTORQUE[1], 2000.0);  // the torque axis runs 0, 25, ... 100 %
    EXPECT_EQ(p.NOMINALSTIFFNESS[4], 5.0);
    const GeislingerCouplingTable& g = m.tables.GEISLINGERCOUPLING_TABLE;
    EXPECT_EQ(g(1).OILVISCOSITY, 0.05);
    EXPECT_EQ(g(1).DAMPINGTYPE, 1);
    EXPECT_EQ(g(1).OILSUPPLYTYPE, 2);
    EXPECT_EQ(g(1).DESIGNTYPE, 2);
    EXPECT_EQ(g(2).DAMPINGTYPE, 2);  // keywords in any case
    EXPECT_EQ(g(2).OILSUPPLYTYPE, 0);
    EXPECT_EQ(g(3).DAMPINGTYPE, 2);  // an unknown word keeps the coupling before
}

TEST(SectionsDampersCouplings, MissingElementsMarkNothingAndGiveNoMessage) {
    ReadModel m("LINEARCOUPLING 1 1\n9 5000 4E6\n" + LINE + "RUBBERDAMPER 6 1\n1 4 40\n");
    ASSERT_TRUE(m.ok);
    for (int s = 1; s <= 3; ++s) EXPECT_EQ(m.tables.SHAFT_TABLE(s).SHAFTTYPE, 9);
    EXPECT_EQ(m.tables.MASS_TABLE(1).MASSTYPE, 5);  // no shaft joins 1 and 4, the inertias are marked
    EXPECT_TRUE(m.log.empty());
}

TEST(SectionsDampersCouplings, EachLineThatDoesNotReadGivesItsMessage) {
    const struct {
        std::string section;
        std::string items;
        int line;
    } cases[] = {
        {"VISCOUSDAMPER 1\n", "Id, isDefaultPowerLoss", 8},
        {"VISCOUSDAMPER 1 1\n1 2 30\n", "CasingNode, RingNode, AbsDamping", 9},  // the flag is required
        {"RUBBERDAMPER 1 1\n1 2\n", "TurningMassNode, DrivePlateNode, AbsDamping", 9},
        {"STEELSPRINGDAMPER 1 1\nx 2 3\n", "OuterMemberNode, InnerMemberNode, AbsDamping", 9},
        {"LINEARCOUPLING 1 1\n1 2\n", "ShaftNode, NominalTorque, NominalStiffness", 9},
        {"PROGRESSIVECOUPLING 1 1\n1 2 3 4 5 6\n", "ShaftNode, NominalTorque, NominalStiffness(5)", 9},
        {"GEISLINGERCOUPLING 1 1\n1 2 3 4\n",
         "ShaftNode, NominalTorque, StaticStiffness, CharacteristicFrequency, OilViscosity", 9},
    };
    for (const auto& c : cases) {
        ReadModel m(LINE + c.section);
        EXPECT_FALSE(m.ok) << c.section;
        ASSERT_EQ(m.log.size(), 1U) << c.section;
        EXPECT_EQ(m.log[0], read_error(c.items, c.line)) << c.section;
    }
}

}  // namespace
}  // namespace qm
