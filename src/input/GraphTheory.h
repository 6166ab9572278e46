// Module GRAPHTHEORY: the shaft line as a graph of inertias (nodes) and shafts (edges).
//
// ADJNODE holds, for each node 1..N, the other ends of its edges in rising order, each once:
// memory and walks grow with the number of nodes and shafts, not with its square. The
// caller adds both directions of an edge except for the propeller shaft search, which takes
// a directed graph. A node set is a Table<int> of N entries with 1 for a member.
#pragma once

#include <vector>

#include "components/GlobalMass.h"
#include "components/GlobalPropeller.h"
#include "components/GlobalShaft.h"
#include "base/Table.h"

namespace qm::GRAPHTHEORY {

class AdjacencyList {
public:
    // N nodes without edges.
    void allocate(int N);
    int nodes() const { return static_cast<int>(next_.size()) - 1; }
    // The edge from i to j; an end outside 1..N gives none. Call finish() after the last.
    void add_edge(int i, int j);
    // Sorts each node's neighbours and drops repeated ones.
    void finish();
    bool has_edge(int i, int j) const;
    // The other ends of the edges from node i (1..N), in rising order.
    const std::vector<int>& neighbours(int i) const { return next_.at(static_cast<std::size_t>(i)); }

private:
    std::vector<std::vector<int>> next_ = std::vector<std::vector<int>>(1);
};

// Marks in VISITEDNODE every node reachable from `start` (depth first, neighbours in rising
// order, with an explicit stack).
void UNDIRECTEDGRAPH_TRAVERSALDFS(int N, const AdjacencyList& ADJNODE, Table<int>& VISITEDNODE, int start);
// True when every node is reachable from node 1.
void UNDIRECTEDGRAPH_ISCONNECTED(int N, const AdjacencyList& ADJNODE, bool& connected);
// For a connected graph: true unless it has exactly N - 1 edges.
void UNDIRECTEDGRAPH_ISCYCLEEXIST(int N, int nEdge, bool& cycle);
// The two sides of the edge between origin and destination, each with its own end. The
// walks pass over that edge (all shafts between the two nodes); ADJNODE is not changed.
void UNDIRECTEDGRAPH_TWOBRANCH(int N, const AdjacencyList& ADJNODE, int origin, int destination,
                               Table<int>& ORGVISITEDNODE, Table<int>& DESVISITEDNODE);
// Whether `node` lies on the free shaft of a propeller: the chain of nodes with fewer than
// three edges from the propeller's node up to the first junction. ADJNODE is directed and
// indexed by node IDs; an edge counts in either direction. With several matches the last
// propeller found stands.
void ISDESNODELOCATEDONPROPELLERSHAFT(const PropellerTable& PROPELLER_TABLE, int N, const AdjacencyList& ADJNODE,
                                      int node, int& propellerRow, bool& located);

}  // namespace qm::GRAPHTHEORY

namespace qm::IMPORTINPUTFILE {

// The graph of the tables: node i is row i of MASS_TABLE (the first row of an ID); a shaft
// whose end is not in the table gives no edge. A directed graph has only the edge from
// origin to destination of each shaft.
GRAPHTHEORY::AdjacencyList mass_shaft_graph(const MassTable& MASS_TABLE, const ShaftTable& SHAFT_TABLE,
                                            bool directed = false);

// Connection test of the tables' graph, and the cycle test when it is connected (false
// otherwise).
void MASSSHAFTGRAPHCHECK(const MassTable& MASS_TABLE, const ShaftTable& SHAFT_TABLE, bool& connected, bool& cycle);

}  // namespace qm::IMPORTINPUTFILE
