#include <gtest/gtest.h>

#include "input/GraphTheory.h"

namespace qm {
namespace {

using namespace GRAPHTHEORY;

MassTable masses(int n) {
    MassTable t;
    t.allocate(n);
    for (int i = 1; i <= n; ++i) t(i).ID = 10 * i;  // IDs differ from rows
    return t;
}

ShaftTable shafts(std::initializer_list<std::pair<int, int>> ends) {
    ShaftTable t;
    t.allocate(static_cast<int>(ends.size()));
    int s = 0;
    for (auto [a, b] : ends) {
        t(++s).ORGNODE = a;
        t(s).DESNODE = b;
    }
    return t;
}

TEST(GraphTheory, ConnectionAndCycleOfTheTables) {
    struct Case {
        int n;
        ShaftTable s;
        bool connected, cycle;
    };
    const Case cases[] = {
        {1, ShaftTable{}, true, false},                                  // one inertia, no shaft
        {3, shafts({{10, 20}, {20, 30}}), true, false},                  // a line
        {3, shafts({{10, 20}, {20, 30}, {30, 10}}), true, true},         // a ring
        {3, shafts({{10, 20}, {20, 30}, {30, 20}}), true, true},         // a doubled shaft
        {4, shafts({{10, 20}, {30, 40}}), false, false},                 // two loose pairs
        {3, shafts({{10, 20}, {20, 99}}), false, false},                 // an end not in the table
    };
    for (const Case& c : cases) {
        bool connected = false, cycle = true;
        IMPORTINPUTFILE::MASSSHAFTGRAPHCHECK(masses(c.n), c.s, connected, cycle);
        EXPECT_EQ(connected, c.connected) << c.n << " nodes, " << c.s.size() << " shafts";
        EXPECT_EQ(cycle, c.cycle) << c.n << " nodes, " << c.s.size() << " shafts";
    }
}

TEST(GraphTheory, TwoBranchesOfAShaftAndTheCallersMatrixUntouched) {
    // A tree: 1-2-3-4 with a branch 2-5.
    const AdjacencyList adj =
        IMPORTINPUTFILE::mass_shaft_graph(masses(5), shafts({{10, 20}, {20, 30}, {30, 40}, {20, 50}}));
    Table<int> org, des;
    UNDIRECTEDGRAPH_TWOBRANCH(5, adj, 2, 3, org, des);
    EXPECT_EQ((std::vector<int>(org.data(), org.data() + 5)), (std::vector<int>{1, 1, 0, 0, 1}));
    EXPECT_EQ((std::vector<int>(des.data(), des.data() + 5)), (std::vector<int>{0, 0, 1, 1, 0}));
    UNDIRECTEDGRAPH_TWOBRANCH(5, adj, 3, 4, org, des);  // the end shaft: one node on its side
    EXPECT_EQ((std::vector<int>(des.data(), des.data() + 5)), (std::vector<int>{0, 0, 0, 1, 0}));
    EXPECT_TRUE(adj.has_edge(2, 3));
    EXPECT_TRUE(adj.has_edge(3, 2));
}

TEST(GraphTheory, LongLinesAndParallelShafts) {
    // A line of 100000 inertias: connected, no cycle, and no matrix of its square.
    const int n = 100000;
    const MassTable m = masses(n);
    ShaftTable line;
    line.allocate(n - 1);
    for (int i = 1; i < n; ++i) {
        line(i).ORGNODE = 10 * i;
        line(i).DESNODE = 10 * (i + 1);
    }
    bool connected = false, cycle = true;
    IMPORTINPUTFILE::MASSSHAFTGRAPHCHECK(m, line, connected, cycle);
    EXPECT_TRUE(connected);
    EXPECT_FALSE(cycle);

    // Two shafts between 2 and 3 are one edge of the lists; a split passes over both.
    const AdjacencyList adj = IMPORTINPUTFILE::mass_shaft_graph(masses(4), shafts({{10, 20}, {20, 30}, {30, 20}, {30, 40}}));
    EXPECT_EQ(adj.neighbours(2), (std::vector<int>{1, 3}));
    Table<int> org, des;
    UNDIRECTEDGRAPH_TWOBRANCH(4, adj, 2, 3, org, des);
    EXPECT_EQ((std::vector<int>(org.data(), org.data() + 4)), (std::vector<int>{1, 1, 0, 0}));
    EXPECT_EQ((std::vector<int>(des.data(), des.data() + 4)), (std::vector<int>{0, 0, 1, 1}));
}

TEST(GraphTheory, PropellerShaftRunsFromThePropellerToTheFirstJunction) {
    // Directed by node IDs: 1-2-3 (3 a junction with 4 and 7), 3-4-5-6 with the propeller at 6.
    const int N = 7;
    AdjacencyList adj;
    adj.allocate(N);
    for (auto [a, b] : {std::pair{1, 2}, {2, 3}, {3, 4}, {4, 5}, {5, 6}, {3, 7}}) adj.add_edge(a, b);
    adj.finish();
    PropellerTable props;
    props.allocate(1);
    props(1).PROPELLERNODE = 6;
    auto located = [&](int node) {
        int row = -1;
        bool on = false;
        ISDESNODELOCATEDONPROPELLERSHAFT(props, N, adj, node, row, on);
        EXPECT_EQ(row, on ? 1 : 0);
        return on;
    };
    EXPECT_TRUE(located(6));  // the propeller's own node
    EXPECT_TRUE(located(4));
    EXPECT_FALSE(located(3));  // the junction
    EXPECT_FALSE(located(2));  // behind it
}

}  // namespace
}  // namespace qm
