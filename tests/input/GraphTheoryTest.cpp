#include <gtest/gtest.h>

#include "../support/TestModels.h"
#include "input/GraphTheory.h"

namespace qm {
namespace {

using namespace GRAPHTHEORY;

using Ends = std::vector<std::pair<int, int>>;

// Inertias 10, 20, ... (IDs differ from rows) and shafts between the given IDs.
ModelTables graph(int n, const Ends& ends) {
    test::Model m;
    for (int i = 1; i <= n; ++i) m.mass(10 * i, 1.0);
    for (auto [a, b] : ends) m.shaft(a, b, 1.0e6);
    return std::move(m.t);
}

AdjacencyList adjacency(int n, const Ends& ends) {
    const ModelTables t = graph(n, ends);
    return IMPORTINPUTFILE::mass_shaft_graph(t.MASS_TABLE, t.SHAFT_TABLE);
}

std::vector<int> values(const Table<int>& t) { return {t.data(), t.data() + t.size()}; }

TEST(GraphTheory, ConnectionAndCycleOfTheTables) {
    struct Case {
        int n;
        Ends ends;
        bool connected, cycle;
    };
    const Case cases[] = {
        {1, {}, true, false},                                  // one inertia, no shaft
        {3, {{10, 20}, {20, 30}}, true, false},                // a line
        {3, {{10, 20}, {20, 30}, {30, 10}}, true, true},       // a ring
        {3, {{10, 20}, {20, 30}, {30, 20}}, true, true},       // a doubled shaft
        {4, {{10, 20}, {30, 40}}, false, false},               // two loose pairs
        {3, {{10, 20}, {20, 99}}, false, false},               // an end not in the table
    };
    for (const Case& c : cases) {
        const ModelTables t = graph(c.n, c.ends);
        bool connected = false, cycle = true;
        IMPORTINPUTFILE::MASSSHAFTGRAPHCHECK(t.MASS_TABLE, t.SHAFT_TABLE, connected, cycle);
        EXPECT_EQ(connected, c.connected) << c.n << " nodes, " << c.ends.size() << " shafts";
        EXPECT_EQ(cycle, c.cycle) << c.n << " nodes, " << c.ends.size() << " shafts";
    }
}

TEST(GraphTheory, TwoBranchesOfAShaftAndTheCallersMatrixUntouched) {
    // A tree: 1-2-3-4 with a branch 2-5.
    const AdjacencyList adj = adjacency(5, {{10, 20}, {20, 30}, {30, 40}, {20, 50}});
    Table<int> org, des;
    UNDIRECTEDGRAPH_TWOBRANCH(5, adj, 2, 3, org, des);
    EXPECT_EQ(values(org), (std::vector<int>{1, 1, 0, 0, 1}));
    EXPECT_EQ(values(des), (std::vector<int>{0, 0, 1, 1, 0}));
    UNDIRECTEDGRAPH_TWOBRANCH(5, adj, 3, 4, org, des);  // the end shaft: one node on its side
    EXPECT_EQ(values(des), (std::vector<int>{0, 0, 0, 1, 0}));
    EXPECT_TRUE(adj.has_edge(2, 3));
    EXPECT_TRUE(adj.has_edge(3, 2));
}

TEST(GraphTheory, LongLinesAndParallelShafts) {
    // A line of 100000 inertias: connected, no cycle, and no matrix of its square.
    const int n = 100000;
    MassTable m;
    m.allocate(n);
    ShaftTable line;
    line.allocate(n - 1);
    for (int i = 1; i <= n; ++i) m(i).ID = 10 * i;
    for (int i = 1; i < n; ++i) line(i) = {.ORGNODE = 10 * i, .DESNODE = 10 * (i + 1)};
    bool connected = false, cycle = true;
    IMPORTINPUTFILE::MASSSHAFTGRAPHCHECK(m, line, connected, cycle);
    EXPECT_TRUE(connected);
    EXPECT_FALSE(cycle);

    // Two shafts between 2 and 3 are one edge of the lists; a split passes over both.
    const AdjacencyList adj = adjacency(4, {{10, 20}, {20, 30}, {30, 20}, {30, 40}});
    EXPECT_EQ(adj.neighbours(2), (std::vector<int>{1, 3}));
    Table<int> org, des;
    UNDIRECTEDGRAPH_TWOBRANCH(4, adj, 2, 3, org, des);
    EXPECT_EQ(values(org), (std::vector<int>{1, 1, 0, 0}));
    EXPECT_EQ(values(des), (std::vector<int>{0, 0, 1, 1}));
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
