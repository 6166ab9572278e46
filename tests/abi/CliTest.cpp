// The command-line tool: exit status and what it prints.
#include <gtest/gtest.h>

#include <cstdlib>
#include <sys/wait.h>

#include "../TestSupport.h"

namespace qm {
namespace {

int cli(const std::string& args, const std::string& output) {
    const std::string cmd = std::string("'") + QM_CLI_PROGRAM + "' " + args + " > '" + output + "' 2>&1";
    const int status = std::system(cmd.c_str());
    return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
}

std::string in_quotes(const std::filesystem::path& p) { return "'" + p.string() + "'"; }

TEST(Cli, RunPrintsValidityLogAndFrequenciesAndExitsByValidity) {
    test::ScratchDir dir;
    test::write_file(dir / "good.qmk", "INERTIA 1 1 1500 0 0\nINERTIA 2 1 300 0 0\nSHAFT 1 1 2 1 2.5e8 0 0 0 0 0 0\n");
    test::write_file(dir / "bad.qmk", "SHAFT 1 1 2\n");
    const std::string out = (dir / "stdout.txt").string(), res = " -o " + in_quotes(dir / "res");

    ASSERT_EQ(cli("run " + in_quotes(dir / "good.qmk") + res, out), 0);
    const std::string good = test::read_file(out);
    EXPECT_NE(good.find("Input valid: yes"), std::string::npos);
    EXPECT_NE(good.find("1000.0000"), std::string::npos);  // rad/s of mode 2
    EXPECT_NE(good.find("9549.30"), std::string::npos);    // and its rpm
    // The first inertia is the reference; the light one swings five times as far.
    EXPECT_NE(good.find("inertias:  ID 2   -5.000  ID 1    1.000"), std::string::npos);

    ASSERT_EQ(cli("run " + in_quotes(dir / "bad.qmk") + res, out), 1);
    const std::string bad = test::read_file(out);
    EXPECT_NE(bad.find("Input valid: no"), std::string::npos);
    EXPECT_NE(bad.find("Error occurs when reading \"Id, OrgNode"), std::string::npos);

    const std::string chk = " -o " + in_quotes(dir / "chk");
    ASSERT_EQ(cli("check " + in_quotes(dir / "bad.qmk") + chk, out), 1);
    EXPECT_NE(test::read_file(out).find("Error occurs when reading"), std::string::npos);
    ASSERT_EQ(cli("check " + in_quotes(dir / "good.qmk") + chk, out), 0);
    EXPECT_FALSE(std::filesystem::exists(dir / "chk" / "NaturalFrequency.bin"));

    EXPECT_EQ(cli("run", out), 2);
    EXPECT_EQ(cli("frobnicate", out), 2);
    EXPECT_EQ(cli("run --help", out), 0);
    EXPECT_NE(test::read_file(out).find("--type"), std::string::npos);
}

TEST(Cli, ForcedRunPrintsOneTablePerLoadCase) {
    test::ScratchDir dir;
    const std::string out = (dir / "stdout.txt").string();
    const std::string model = std::string(QM_EXAMPLES_DIR) + "/two-stroke-main-engine.qmk";
    ASSERT_EQ(cli("run " + in_quotes(model) + " -o " + in_quotes(dir / "res") + " --type 2", out), 0);
    const std::string text = test::read_file(out);
    EXPECT_EQ(text.find("Natural frequencies"), std::string::npos);  // the forced part only
    EXPECT_NE(text.find("Load case 16:    105.0 rpm"), std::string::npos);
    EXPECT_NE(text.find("Diesel 1, order"), std::string::npos);
    // with a damper in the model: synthesis, resultant, and power loss on damper shafts only
    EXPECT_NE(text.find("Synthesis    Stress   Resultant  Power loss"), std::string::npos);
    // the propeller shaft (ID 13) at rated speed carries the engine's 8500 kW at 105 rpm
    const std::size_t row = text.find("        13         773.038");
    ASSERT_NE(row, std::string::npos);
    const std::string line = text.substr(row, text.find('\n', row) - row);
    EXPECT_NE(line.find("           -"), std::string::npos) << line;
}

}  // namespace
}  // namespace qm
