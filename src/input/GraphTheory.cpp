#include "input/GraphTheory.h"

#include <algorithm>
#include <unordered_map>
#include <utility>

namespace qm::GRAPHTHEORY {

namespace {
bool in_range(int N, int node) { return node >= 1 && node <= N; }

// Depth-first walk from `start` that does not use the edges between `cutA` and `cutB` (in
// either direction; 0 cuts nothing). Each stack entry remembers how far its neighbour list
// has been scanned: nodes once marked stay marked, so the scan never needs to start again,
// and the walk visits the nodes in the order of a full rescan of rising neighbours.
void walk(int N, const AdjacencyList& ADJNODE, Table<int>& VISITEDNODE, int start, int cutA, int cutB) {
    VISITEDNODE.allocate(N);
    if (!in_range(N, start) || ADJNODE.nodes() < N) return;
    std::vector<std::pair<int, std::size_t>> stack;
    VISITEDNODE(start) = 1;
    stack.emplace_back(start, 0);
    while (!stack.empty()) {
        auto& [top, position] = stack.back();
        const std::vector<int>& next = ADJNODE.neighbours(top);
        int found = 0;
        while (position < next.size()) {
            const int j = next[position++];
            const bool cut = (top == cutA && j == cutB) || (top == cutB && j == cutA);
            if (!cut && in_range(N, j) && VISITEDNODE(j) == 0) {
                found = j;
                break;
            }
        }
        if (found != 0) {
            VISITEDNODE(found) = 1;
            stack.emplace_back(found, 0);
        } else {
            stack.pop_back();
        }
    }
}
}  // namespace

void AdjacencyList::allocate(int N) {
    next_.clear();
    next_.resize(static_cast<std::size_t>(N > 0 ? N : 0) + 1);
}

void AdjacencyList::add_edge(int i, int j) {
    if (!in_range(nodes(), i) || !in_range(nodes(), j)) return;
    next_[static_cast<std::size_t>(i)].push_back(j);
}

void AdjacencyList::finish() {
    for (std::vector<int>& list : next_) {
        std::sort(list.begin(), list.end());
        list.erase(std::unique(list.begin(), list.end()), list.end());
    }
}

bool AdjacencyList::has_edge(int i, int j) const {
    if (!in_range(nodes(), i)) return false;
    const std::vector<int>& list = next_[static_cast<std::size_t>(i)];
    return std::binary_search(list.begin(), list.end(), j);
}

void UNDIRECTEDGRAPH_TRAVERSALDFS(int N, const AdjacencyList& ADJNODE, Table<int>& VISITEDNODE, int start) {
    walk(N, ADJNODE, VISITEDNODE, start, 0, 0);
}

void UNDIRECTEDGRAPH_ISCONNECTED(int N, const AdjacencyList& ADJNODE, bool& connected) {
    Table<int> visited;
    UNDIRECTEDGRAPH_TRAVERSALDFS(N, ADJNODE, visited, 1);
    connected = true;
    for (int i = 1; i <= N; ++i)
        if (visited(i) == 0) connected = false;
}

void UNDIRECTEDGRAPH_ISCYCLEEXIST(int N, int nEdge, bool& cycle) { cycle = N != nEdge + 1; }

void UNDIRECTEDGRAPH_TWOBRANCH(int N, const AdjacencyList& ADJNODE, int origin, int destination,
                               Table<int>& ORGVISITEDNODE, Table<int>& DESVISITEDNODE) {
    const bool cut = in_range(N, origin) && in_range(N, destination);
    walk(N, ADJNODE, ORGVISITEDNODE, origin, cut ? origin : 0, cut ? destination : 0);
    walk(N, ADJNODE, DESVISITEDNODE, destination, cut ? origin : 0, cut ? destination : 0);
}

void ISDESNODELOCATEDONPROPELLERSHAFT(const PropellerTable& PROPELLER_TABLE, int N, const AdjacencyList& ADJNODE,
                                      int node, int& propellerRow, bool& located) {
    located = false;
    propellerRow = 0;
    if (ADJNODE.nodes() < N) return;
    // The edges into each node, so that an edge counts from either end.
    std::vector<std::vector<int>> into(static_cast<std::size_t>(N > 0 ? N : 0) + 1);
    for (int i = 1; i <= N; ++i)
        for (int j : ADJNODE.neighbours(i))
            if (in_range(N, j)) into[static_cast<std::size_t>(j)].push_back(i);
    Table<int> visited;
    visited.allocate(N);
    for (int p = 1; p <= row_count(PROPELLER_TABLE); ++p) {
        int current = PROPELLER_TABLE(p).PROPELLERNODE;
        if (!in_range(N, current)) continue;
        visited(current) = 1;
        for (;;) {
            // Edges at the current node, and the highest of their other ends not yet walked.
            int edges = 0;
            int neighbour = 0;
            const std::vector<int>& incoming = into[static_cast<std::size_t>(current)];
            for (const std::vector<int>* list : {&ADJNODE.neighbours(current), &incoming}) {
                for (int i : *list) {
                    if (!in_range(N, i)) continue;
                    ++edges;
                    if (visited(i) == 0) neighbour = std::max(neighbour, i);
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

GRAPHTHEORY::AdjacencyList mass_shaft_graph(const MassTable& MASS_TABLE, const ShaftTable& SHAFT_TABLE,
                                            bool directed) {
    const int N = GLOBAL_MASS::GET_MASS_NUMBER(MASS_TABLE);
    // Row of each ID, the first where an ID repeats, as the lookup by ID gives it.
    std::unordered_map<int, int> row_of_id;
    row_of_id.reserve(static_cast<std::size_t>(N));
    for (int i = 1; i <= N; ++i) row_of_id.emplace(MASS_TABLE(i).ID, i);
    auto row = [&](int id) {
        const auto found = row_of_id.find(id);
        return found == row_of_id.end() ? 0 : found->second;
    };
    GRAPHTHEORY::AdjacencyList ADJNODE;
    ADJNODE.allocate(N);
    for (int s = 1; s <= GLOBAL_SHAFT::GET_SHAFT_NUMBER(SHAFT_TABLE); ++s) {
        const int i = row(SHAFT_TABLE(s).ORGNODE);
        const int j = row(SHAFT_TABLE(s).DESNODE);
        if (i == 0 || j == 0) continue;
        ADJNODE.add_edge(i, j);
        if (!directed) ADJNODE.add_edge(j, i);
    }
    ADJNODE.finish();
    return ADJNODE;
}

void MASSSHAFTGRAPHCHECK(const MassTable& MASS_TABLE, const ShaftTable& SHAFT_TABLE, bool& connected, bool& cycle) {
    const int N = GLOBAL_MASS::GET_MASS_NUMBER(MASS_TABLE);
    const int nEdge = GLOBAL_SHAFT::GET_SHAFT_NUMBER(SHAFT_TABLE);
    const GRAPHTHEORY::AdjacencyList ADJNODE = mass_shaft_graph(MASS_TABLE, SHAFT_TABLE);
    GRAPHTHEORY::UNDIRECTEDGRAPH_ISCONNECTED(N, ADJNODE, connected);
    cycle = false;
    if (connected) GRAPHTHEORY::UNDIRECTEDGRAPH_ISCYCLEEXIST(N, nEdge, cycle);
}

}  // namespace qm::IMPORTINPUTFILE
