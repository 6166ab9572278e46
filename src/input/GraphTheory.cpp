#include "input/GraphTheory.h"

#include <vector>

namespace qm::GRAPHTHEORY {

namespace {
bool in_range(int N, int node) { return node >= 1 && node <= N; }
}  // namespace

void UNDIRECTEDGRAPH_TRAVERSALDFS(int N, const Array2D<int>& ADJNODE, Table<int>& VISITEDNODE, int start) {
    VISITEDNODE.allocate(N);
    if (!in_range(N, start)) return;
    std::vector<int> stack;
    stack.reserve(static_cast<std::size_t>(N));
    VISITEDNODE(start) = 1;
    stack.push_back(start);
    while (!stack.empty()) {
        const int top = stack.back();
        int next = 0;
        for (int j = 1; j <= N; ++j) {
            if (ADJNODE(top, j) == 1 && VISITEDNODE(j) == 0) {
                next = j;
                break;
            }
        }
        if (next != 0) {
            VISITEDNODE(next) = 1;
            stack.push_back(next);
        } else {
            stack.pop_back();
        }
    }
}

void UNDIRECTEDGRAPH_ISCONNECTED(int N, const Array2D<int>& ADJNODE, bool& connected) {
    Table<int> visited;
    UNDIRECTEDGRAPH_TRAVERSALDFS(N, ADJNODE, visited, 1);
    connected = true;
    for (int i = 1; i <= N; ++i)
        if (visited(i) == 0) connected = false;
}

void UNDIRECTEDGRAPH_ISCYCLEEXIST(int N, int nEdge, bool& cycle) { cycle = N != nEdge + 1; }

void UNDIRECTEDGRAPH_TWOBRANCH(int N, const Array2D<int>& ADJNODE, int origin, int destination,
                               Table<int>& ORGVISITEDNODE, Table<int>& DESVISITEDNODE) {
    Array2D<int> COPYADJNODE = ADJNODE;
    if (in_range(N, origin) && in_range(N, destination)) {
        COPYADJNODE(origin, destination) = 0;
        COPYADJNODE(destination, origin) = 0;
    }
    UNDIRECTEDGRAPH_TRAVERSALDFS(N, COPYADJNODE, ORGVISITEDNODE, origin);
    UNDIRECTEDGRAPH_TRAVERSALDFS(N, COPYADJNODE, DESVISITEDNODE, destination);
}

void ISDESNODELOCATEDONPROPELLERSHAFT(const PropellerTable& PROPELLER_TABLE, int N, const Array2D<int>& ADJNODE,
                                      int node, int& propellerRow, bool& located) {
    located = false;
    propellerRow = 0;
    Table<int> visited;
    visited.allocate(N);
    for (int p = 1; p <= row_count(PROPELLER_TABLE); ++p) {
        int current = PROPELLER_TABLE(p).PROPELLERNODE;
        if (!in_range(N, current)) continue;
        visited(current) = 1;
        int edges = 0;
        while (edges < 3) {
            edges = 0;
            int neighbour = 0;
            for (int i = 1; i <= N; ++i) {
                for (int hit : {ADJNODE(i, current), ADJNODE(current, i)}) {
                    if (hit != 1) continue;
                    ++edges;
                    if (visited(i) == 0) neighbour = i;
                }
            }
            if (edges >= 3) break;  // a junction ends the free shaft
            if (current == node) {
                propellerRow = p;
                located = true;
                break;
            }
            if (neighbour == 0) break;  // the shaft has ended
            current = neighbour;
            visited(current) = 1;
        }
    }
}

}  // namespace qm::GRAPHTHEORY

namespace qm::IMPORTINPUTFILE {

Array2D<int> mass_shaft_graph(const MassTable& MASS_TABLE, const ShaftTable& SHAFT_TABLE, bool directed) {
    const int N = GLOBAL_MASS::GET_MASS_NUMBER(MASS_TABLE);
    Array2D<int> ADJNODE;
    ADJNODE.allocate(N, N);
    for (int s = 1; s <= GLOBAL_SHAFT::GET_SHAFT_NUMBER(SHAFT_TABLE); ++s) {
        const int i = GLOBAL_MASS::GET_MASS_IMASS(MASS_TABLE, SHAFT_TABLE(s).ORGNODE);
        const int j = GLOBAL_MASS::GET_MASS_IMASS(MASS_TABLE, SHAFT_TABLE(s).DESNODE);
        if (i == 0 || j == 0) continue;
        ADJNODE(i, j) = 1;
        if (!directed) ADJNODE(j, i) = 1;
    }
    return ADJNODE;
}

void MASSSHAFTGRAPHCHECK(const MassTable& MASS_TABLE, const ShaftTable& SHAFT_TABLE, bool& connected, bool& cycle) {
    const int N = GLOBAL_MASS::GET_MASS_NUMBER(MASS_TABLE);
    const int nEdge = GLOBAL_SHAFT::GET_SHAFT_NUMBER(SHAFT_TABLE);
    const Array2D<int> ADJNODE = mass_shaft_graph(MASS_TABLE, SHAFT_TABLE);
    GRAPHTHEORY::UNDIRECTEDGRAPH_ISCONNECTED(N, ADJNODE, connected);
    cycle = false;
    if (connected) GRAPHTHEORY::UNDIRECTEDGRAPH_ISCYCLEEXIST(N, nEdge, cycle);
}

}  // namespace qm::IMPORTINPUTFILE
