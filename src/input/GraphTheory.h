// Module GRAPHTHEORY: the shaft line as a graph of inertias (nodes) and shafts (edges).
//
// ADJNODE is a dense N x N matrix (Array2D<int>, 1-based) with 1 for an edge; the caller
// sets both (i, j) and (j, i) except for the propeller shaft search, which takes a directed
// matrix. A node set is a Table<int> of N entries with 1 for a member.
#pragma once

#include "components/GlobalMass.h"
#include "components/GlobalPropeller.h"
#include "components/GlobalShaft.h"
#include "base/Table.h"

namespace qm::GRAPHTHEORY {

// Marks in VISITEDNODE every node reachable from `start` (depth first, neighbours in rising
// order, with an explicit stack).
void UNDIRECTEDGRAPH_TRAVERSALDFS(int N, const Array2D<int>& ADJNODE, Table<int>& VISITEDNODE, int start);
// True when every node is reachable from node 1.
void UNDIRECTEDGRAPH_ISCONNECTED(int N, const Array2D<int>& ADJNODE, bool& connected);
// For a connected graph: true unless it has exactly N - 1 edges.
void UNDIRECTEDGRAPH_ISCYCLEEXIST(int N, int nEdge, bool& cycle);
// The two sides of the edge between origin and destination, each with its own end.
void UNDIRECTEDGRAPH_TWOBRANCH(int N, const Array2D<int>& ADJNODE, int origin, int destination,
                               Table<int>& ORGVISITEDNODE, Table<int>& DESVISITEDNODE);
// Whether `node` lies on the free shaft of a propeller: the chain of nodes with fewer than
// three edges from the propeller's node up to the first junction. ADJNODE is directed and
// indexed by node IDs. With several matches the last propeller found stands.
void ISDESNODELOCATEDONPROPELLERSHAFT(const PropellerTable& PROPELLER_TABLE, int N, const Array2D<int>& ADJNODE,
                                      int node, int& propellerRow, bool& located);

}  // namespace qm::GRAPHTHEORY

namespace qm::IMPORTINPUTFILE {

// The graph of the tables: node i is row i of MASS_TABLE; a shaft whose end is not in the
// table gives no edge. A directed graph has only (origin, destination) set for each shaft.
Array2D<int> mass_shaft_graph(const MassTable& MASS_TABLE, const ShaftTable& SHAFT_TABLE, bool directed = false);

// Connection test of the tables' graph, and the cycle test when it is connected (false
// otherwise).
void MASSSHAFTGRAPHCHECK(const MassTable& MASS_TABLE, const ShaftTable& SHAFT_TABLE, bool& connected, bool& cycle);

}  // namespace qm::IMPORTINPUTFILE
